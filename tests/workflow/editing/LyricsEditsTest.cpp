// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/words/LyricsEdits.h"

#include "model/songs/QBMeasure.h"
#include "model/store/QBTabMgr.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageOfSong.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/editing/SongEditor.h"
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
