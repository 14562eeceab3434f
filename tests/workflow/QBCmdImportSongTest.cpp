// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/QBCmdImportSong.h"

#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"
#include "workflow/library/AlbumNode.h"

namespace korvel {
namespace {

struct QBCmdImportSongTest : testing::Test {
  std::shared_ptr<QBCmdImportSong> command(const std::string& title) {
    return std::make_shared<QBCmdImportSong>(std::make_shared<AlbumNode>(m_album), m_file,
                                             m_album->createSong(title));
  }
  QBSong& song(const std::string& title) { return *m_album->findSongByName(title); }
  /// Imports the strums with the precise detection.
  QBSong& precise(const std::vector<test::Strum>& strums, const HearingSettings& settings = {}) {
    test::writeWav(m_file, test::play(strums));
    const auto made = command("Precise");
    made->setDetection(preciseDetection(), settings);
    made->onProgress([this](double share) { m_progress.push_back(share); });
    made->run();
    return song("Precise");
  }

  const test::ScratchStore m_store{test::ScratchStore::Content::ofFirstStart};
  test::RecordingViews m_views;
  std::string m_file = m_store.folder().file("a.wav");
  platform::Ref<QBAlbum> m_album = QBTabMgr::db().createAlbum("A", false);
  std::vector<double> m_progress;
};

/// The frets of each chord's tones and, in front of them, the block that it stands for.
std::string blocksOf(QBSong& song) {
  std::string text;
  for (const auto& chord : song.allChords()) {
    EXPECT_EQ(chord->timestamp() % 16384, 0);
    text += std::to_string(chord->timestamp() / 16384) + ':' + test::fretsOf(*chord) + ' ';
  }
  return text;
}

TEST_F(QBCmdImportSongTest, preciseSongKeepsTimeWithTheRecording) {
  const std::vector<test::Strum> strums{{{}, 0.8},
                                        {test::notesOf("x32010"), 1.04},
                                        {{}, 0.8},
                                        {test::notesOf("xx0232"), 1.04},
                                        {{}, 1}};
  QBSong& heard = precise(strums);
  EXPECT_EQ(blocksOf(heard),
            "2:x32010 3:x32010 4:x32010 5:xxxxxx 6:xxxxxx 7:xx0232 8:xx0232 9:xx0232 ");
  for (const auto& chord : heard.allChords()) {
    EXPECT_EQ(chord->duration(), 1);
    for (const QBTone* tone : chord->hold()->tones()) EXPECT_GE(tone->group(), 1);
  }
  EXPECT_EQ(heard.allChords().front()->fullHarmonyName(), "C");
  EXPECT_TRUE(heard.hasTabulature());
  EXPECT_EQ(m_album->songs().size(), 1U) << "the scratch song is gone";
  EXPECT_TRUE(std::ranges::is_sorted(m_progress));
  EXPECT_EQ(m_progress.back(), 1);
  const auto log = m_views.log;
  m_views.log.clear();
  command("Classic")->run();
  EXPECT_EQ(m_views.log, log);
  const auto& classic = song("Classic").allChords();
  ASSERT_EQ(classic.size(), 6U) << "without the blocks in which nothing sounds";
  const auto loudest = [](const QBChord& chord) { return chord.hold()->tones().at(0)->amp(); };
  const double ratio = loudest(*heard.allChords()[1]) / loudest(*classic[1]);
  EXPECT_TRUE(ratio > 0.2 && ratio < 10) << "limits of loudness mean about the same: " << ratio;
}

/// Eight bars at 100 beats a minute, a chord in each, and a last one.
std::vector<test::Strum> bars() {
  std::vector<test::Strum> strums{{{}, 0.5}};
  for (std::size_t i = 0; i < 8; ++i) {
    const std::vector<int> notes =
        test::notesOf(std::array{"x32010", "320003", "x02210", "xx3211"}[i % 4]);
    strums.push_back({notes, 0.6});
    for (int beat = 1; beat < 4; ++beat) strums.push_back({{notes.end() - 2, notes.end()}, 0.6});
  }
  strums.push_back({test::notesOf("x32010"), 2.4});
  return strums;
}

TEST_F(QBCmdImportSongTest, songOnBeatsHasTheBarsThatWerePlayed) {
  QBSong& heard = precise(bars(), settingsOfFrontEnds());
  ASSERT_TRUE(heard.isOnBeats());
  EXPECT_NEAR(heard.tempo(), 100, 1);
  const auto measures = heard.allMeasures();
  EXPECT_EQ(measures.size(), 9U);
  for (const auto& measure : measures) {
    EXPECT_EQ(measure->beat(), 4);
    EXPECT_EQ(measure->beattype(), 4);
    EXPECT_EQ(measure->chords().size(), measure == measures.back() ? 1U : 4U);
  }
  EXPECT_EQ(test::fretsOf(*heard.allChords().front()), "x32010");
}

TEST_F(QBCmdImportSongTest, whatIsTooFreeForBarsIsInSlices) {
  std::mt19937 random(2);
  std::vector<test::Strum> strums;
  for (int i = 0; i < 40; ++i) {
    const double seconds = 0.12 + static_cast<double>(random() % 1000) / 1000;
    strums.push_back({{45 + static_cast<int>(random() % 25)}, seconds});
  }
  EXPECT_FALSE(precise(strums, settingsOfFrontEnds()).isOnBeats());
  EXPECT_EQ(
      std::ranges::count_if(
          m_views.log, [](const auto& line) { return line.starts_with("its rhythm is too free"); }),
      1);
}

}  // namespace
}  // namespace korvel
