// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/persistence/UndoManager.h"
#include "support/Script.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/arranging/guided/EasyVersion.h"
#include "workflow/arranging/guided/Practice.h"
#include "workflow/arranging/guided/SingAlong.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using test::Words;

std::string nameOfAction() {
  return QBTabMgr::db().context().undoManager().undoActionName().english();
}

/// Titles, how many chords there are in the store, and what could be undone.
std::string everything(const QBAlbum& album) {
  auto& context = QBTabMgr::db().context();
  std::string text = std::to_string(context.fetch("QBChord").size()) + nameOfAction();
  for (const QBSong* song : album.songs()) text += ' ' + song->title();
  return text;
}

struct SongGuideTest : testing::Test {
  /// What a guide makes, which undo takes back in one step, and which nothing is left of before it
  /// is accepted.
  std::string made(const SongGuide& guide, bool named) {
    const std::string before = everything(*m_desk.album());
    const auto expectAsBefore = [&] { EXPECT_EQ(everything(*m_desk.album()), before); };
    try {
      EXPECT_NE(guide.preview(*m_song).find("|E"), std::string::npos);
      expectAsBefore();
      const platform::Ref<QBSong> song = &guide.accept(*m_song);
      EXPECT_EQ(QBSession::session().activeSong(), song);
      EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "saved";
      EXPECT_EQ(song->measures().size(), m_song->measures().size());
      const std::string text = described(*song, named);
      QBSession::session().undo();
      expectAsBefore();
      return text;
    } catch (const std::exception&) {
      expectAsBefore();
      throw;
    }
  }
  static std::string described(const QBSong& song, bool named) {
    std::string text = song.title() + " |";
    for (const QBChord* chord : song.chords()) {
      text += ' ' + test::fretsOf(*chord);
      if (named && chord->harmony()) text += ':' + chord->fullHarmonyName();
    }
    return text;
  }
  std::string easy(const Words& words) {
    static const std::map<std::string, EasyTones> kTones{
        {"melody", EasyTones::melody},
        {"bassAndMelody", EasyTones::bassAndMelody},
        {"chords", EasyTones::chords}};
    static const std::map<std::string, EasyKey> kKeys{{"asRecorded", EasyKey::asRecorded},
                                                      {"transposed", EasyKey::transposed},
                                                      {"capo", EasyKey::capo}};
    const EasyChoices choices{kTones.at(words[0]), kKeys.at(words[1]), words.number(2)};
    return made(easyVersion(choices), choices.tones == EasyTones::chords);
  }
  std::string practise(const Words& words) {
    std::optional<ChordSpan> passage;
    if (words.size() == 2) passage = ChordSpan{words.number(0), words.number(1)};
    choosePassage(*m_song, passage);
    const ChordSpan loop = loopOf(*m_song);
    return nameOfAction() + " | " + std::to_string(loop.first) + ' ' + std::to_string(loop.last);
  }

  test::SongDesk m_desk;
  QBSong* m_song = nullptr;
};

TEST_F(SongGuideTest, makesSongsAsWritten) {
  test::expectScript(
      "guided/guides.txt",
      {{"song", [&](const Words& words) { return m_song = m_desk.song(words.from(0)), ""; }},
       {"inMetre",
        [&](const Words& words) {
          QBSong* source = m_desk.song(words.from(2), 4);
          m_song = applyMetric(*source, words.number(0), words.number(1));
          QBTabMgr::db().save();
          return "";
        }},
       {"easy", [&](const Words& words) { return easy(words); }},
       {"sing",
        [&](const Words& words) {
          return made(singAlong({words.has("plain"), words.number(0)}), true);
        }},
       {"firstChord", [&](const Words& words) { return firstChordAt(*m_song, words.number(0)); }},
       {"practise", [&](const Words& words) { return practise(words); }}});
}

TEST_F(SongGuideTest, beginningOfALongSongIsShownInTheKeyOfAllOfIt) {
  std::vector<std::string> chords(270, "x02210");
  chords.insert(chords.end(), 300, "688766");
  m_song = m_desk.song(chords);
  const std::string before = everything(*m_desk.album());
  const std::string line = easyVersion({EasyTones::chords, EasyKey::capo, 3}).preview(*m_song);
  EXPECT_NE(line.find("|E"), std::string::npos);
  EXPECT_EQ(line.find("Am"), std::string::npos) << line;
  EXPECT_EQ(everything(*m_desk.album()), before);
}

}  // namespace
}  // namespace korvel
