// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/words/LyricsEdits.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/SongTime.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/UserText.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/DoubtedSong.h"
#include "support/songs/SongDesk.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageOfSong.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/editing/rhythm/EditedChords.h"
#include "workflow/editing/rhythm/SongRhythm.h"
#include "workflow/editing/rhythm/WishedRhythm.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/SongCopies.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

std::string wordsOf(QBSong& song) { return lyricsText(pageSourceOf(song)); }

TEST(LyricsEditsTest, wordsStayInTheirBars) {
  test::SongDesk desk;
  QBSong& song = *test::beatSong(
      desk.album()->createSong("Song"),
      "x02210 q | Am:x02210 h h | C:x32010 h G:320003 h | F:133211 w | Am:x02210 w |");
  QBTabMgr::db().save();
  typeLyrics(song, "0: oh\n1: one | two | | four\n2+2: late");
  const std::string typed = "0: oh\n1: one | two | | four\n2+2: late\n";
  EXPECT_EQ(wordsOf(song), typed);
  SongEditor editor(QBTabMgr::db(), song);
  editor.setChordName(3, "Dm");
  editor.insertChordAfter(5);
  EXPECT_EQ(wordsOf(song), typed) << "chords changed";
  EXPECT_EQ(wordsOf(cloneSong(song)), typed);
  EXPECT_EQ(wordsOf(extractPart(song, 4, 5)), "1: two\n1+2: late\n");
  editor.deleteChords(3, 4);
  EXPECT_EQ(wordsOf(song), "0: oh\n1: one | | four\n") << "with the bar its words";
  EXPECT_EQ(song.allMeasures().back()->position(), 4) << "bars are counted anew";
  changeWords(song, 0, 48, "");
  changeWords(song, 48, 96, "new");
  EXPECT_EQ(wordsOf(song), "0: oh\n2: new | four\n");
  QBSession::session().undo();
  QBSession::session().undo();
  EXPECT_EQ(wordsOf(song), typed);
  EXPECT_THROW(typeLyrics(song, "9: far"), NoPlaceForWords);
  EXPECT_EQ(wordsOf(song), typed);
}

/// Whether chords are counted, or ticks from the first bar line.
TEST(LyricsEditsTest, wordsAreSungAtTheirTimeHoweverTheRecordingIsReadAndHeard) {
  test::SongDesk desk;
  QBSong* song = &test::doubtedSong(*desk.album());
  const auto secondsOf = [&song](std::size_t word) {
    const int place = lyricsOf(*song).at(word).tick;
    if (song->isOnBeats()) return SongTime(*song).secondsOf(place);
    return *recordedSecondsOf(*song->allChords().at(static_cast<std::size_t>(place)));
  };
  setLyrics(*song, {{3, "one"}, {72, "two"}, {230, "three"}});
  const std::vector<double> sung{secondsOf(0), secondsOf(1), secondsOf(2)};
  const auto expectSung = [&](const char* after, double tolerance) {
    for (std::size_t word = 0; word < sung.size(); ++word)
      EXPECT_NEAR(secondsOf(word), sung[word], tolerance) << after << ' ' << word;
  };
  const auto change = [&](const std::function<void(WishedRhythm&)>& wish) {
    SongRhythm(*song).change(platform::phrase("UndoAction", "Change Rhythm"), wish);
  };
  change([](WishedRhythm& wished) { wished.setMetre({3, false}); });
  expectSung("in another metre", 0.16);
  change([](WishedRhythm& wished) { wished.multiplyTempo(2); });
  expectSung("in another tempo", 0.16);
  change([](WishedRhythm& wished) { wished.forget(); });
  SongRhythm(*song).layIntoSlices();
  expectSung("in slices", 0.4);
  const platform::Ref<QBSong> heard(&test::doubtedSong(*desk.album()));
  song = takePlace(heard.get(), song, QBSession::session());
  EXPECT_EQ(song, heard.get());
  expectSung("heard anew", 0.6);
}

/// Among slices they are counted by chords, in measures by ticks; silent chords are in none.
TEST(LyricsEditsTest, wordsStayAtTheirChordsWhenSlicesComeIntoMeasures) {
  test::SongDesk desk;
  std::vector<std::string> chords(33, "x02210");
  chords[4] = "xxxxxx";
  QBSong& song = *desk.song(chords);
  setLyrics(song, {{0, "a"}, {5, "b"}, {17, "c"}, {21, "d"}});
  EXPECT_EQ(wordsOf(*applyMetric(song, 4, 4)), "1: a | c\n1+1: b\n2+1: d\n");
}

}  // namespace
}  // namespace korvel
