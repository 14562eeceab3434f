// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sound/Moments.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBTone.h"
#include "platform/media/ContentHash.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/sound/Guitar.h"
#include "support/sound/HandAudio.h"
#include "support/store/StandardStore.h"
#include "ui/sound/PlayerBar.h"

namespace korvel::ui {
namespace {

/// A chord, a rest and a note, which were heard in a recording of half a second for each.
struct MomentsTest : testing::Test {
  MomentsTest() {
    QSettings().clear();
    platform::AudioSystem::install(&m_audio);
    test::beatSong(m_song, "4/4 x02210 q rq xxxxx0 q q |");
    m_moments.setSong(m_song);
  }
  ~MomentsTest() override {
    m_moments.stop();
    platform::AudioSystem::install(nullptr);
  }

  void record() {
    const std::string file = m_store.folder().file("a.wav");
    test::writeWav(file, test::fewChords());
    SongRecording* recording = QBTabMgr::db().createRecording(file);
    recording->setSeconds(2);
    platform::ContentHash hash(file);
    while (hash.step()) continue;
    recording->setSize(hash.size());
    recording->setHash(hash.digits());
    m_song->setRecording(recording);
    test::setBeatTimes(m_song, 0, [](int tick) { return tick / 24.0; });
  }
  /// How loud that is for half a second; nothing of what was there before.
  int loudness(const std::function<void()>& act) {
    act();
    QTest::qWait(1);
    const std::size_t before = m_audio.heard().size();
    m_audio.play(22050);
    const auto heard = m_audio.heard();
    int loudest = 0;
    for (std::size_t i = before; i < heard.size(); ++i)
      loudest = std::max(loudest, std::abs(static_cast<int>(heard[i])));
    return loudest;
  }

  /// Sooner or later: another thread reads the recording.
  bool isHeard(const std::function<void()>& act) {
    return QTest::qWaitFor([&] { return loudness(act) > 100; }, 20000);
  }

  test::HandAudio m_audio;
  test::StandardStore m_store;
  QBSong* m_song = m_store.song("Waltz");
  PlayerBar m_player;
  Moments m_moments{m_player.mix()};
  QSignalSpy m_refused{&m_moments, &Moments::refused};
  QSignalSpy m_unheard{&m_moments, &Moments::unheard};
};

TEST_F(MomentsTest, guitarStrikesAChordOrTheToneThatWasClicked) {
  const int chord = loudness([&] { m_moments.strikeChord(0); });
  EXPECT_GT(chord, 100);
  const int tone = loudness([&] { m_moments.strikeTone(0, 5); });
  EXPECT_GT(tone, 100);
  EXPECT_LT(tone, chord);
  EXPECT_GT(loudness([&] { m_moments.strikeTone(0, 0); }), tone) << "no tone there: the chord";
  for (const auto& each : m_song->allChords()[0]->hold()->tones()) each->setActive(false);
  m_moments.stop();
  for (const int silent : {0, 1, 99, -1})
    EXPECT_EQ(loudness([&] { m_moments.strikeChord(silent); }), 0) << silent;
  EXPECT_EQ(m_refused.count(), 0);
}

TEST_F(MomentsTest, recordingIsHeardAndElseTheGuitarIfItWasAskedFor) {
  EXPECT_EQ(loudness([&] { m_moments.touch(0); }), 0) << "it follows no recording";
  EXPECT_GT(loudness([&] { m_moments.listenTo(0); }), 100) << "the guitar";
  m_moments.stop();
  record();
  EXPECT_TRUE(isHeard([&] { m_moments.touch(0); }));
  EXPECT_TRUE(isHeard([&] { m_moments.listenTo(2); }));
  EXPECT_EQ(loudness([&] { m_moments.setSong(m_store.song("Other")); }), 0) << "it stops";
  m_moments.setSong(m_song);
  std::filesystem::remove(m_store.folder().file("a.wav"));
  EXPECT_EQ(loudness([&] { m_moments.touch(0); }), 0);
  EXPECT_EQ(m_unheard.count(), 1);
  EXPECT_EQ(m_refused.count(), 0) << "it was only a click";
  EXPECT_EQ(loudness([&] { m_moments.listenTo(0); }), 0);
  ASSERT_EQ(m_refused.count(), 1);
  EXPECT_TRUE(m_refused[0][0].toString().contains("a.wav"))
      << m_refused[0][0].toString().toStdString();
}

}  // namespace
}  // namespace korvel::ui
