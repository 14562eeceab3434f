// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/sheets/SongGrips.h"

#include "model/songs/QBChord.h"
#include "model/store/QBTabMgr.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/SongDesk.h"
#include "tab/layout/ChordGrip.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

std::string gripsOf(QBSong& song) {
  song.forgetCaches();
  std::string text;
  for (const auto& chord : song.allChords())
    text += (text.empty() ? "" : " ") + ChordGrip(*chord).shorthand();
  return text;
}

int hold(QBSong& song, std::string_view shape, int last = 99) {
  return holdChord(song, 0, shapeWritten(shape).value(), {0, last});
}

TEST(SongGripsTest, strokesStayPartsOfTheirGrip) {
  test::SongDesk desk;
  QBSong& song = *test::beatSong(
      desk.album()->createSong("Song"),
      "C:x32010 q xxx010 e x3xxxx e xx2x1x h | G:320003 w | C:x32010 h xxxx3x h | x32010 w |");
  QBTabMgr::db().save();
  const std::string first = "x32010 xxx010 x3xxxx xx2x1x 320003 x32010 xxxx3x x32010";
  EXPECT_EQ(hold(song, "x35553"), 2) << "below a melody it stays";
  EXPECT_EQ(gripsOf(song), "x35553 xxx553 x3xxxx xx5x5x 320003 x32010 xxxx3x x35553");
  EXPECT_EQ(song.allChords()[1]->ticks(), 6);
  EXPECT_EQ(hold(song, "xx5558", 3), 1) << "of fewer strings";
  EXPECT_EQ(gripsOf(song), "xx5558 xxx558 xx5xxx xxx55x 320003 x32010 xxxx3x x35553");
  EXPECT_EQ(hold(song, "xx5558", 3), 0);
  QBSession::session().undo();
  QBSession::session().undo();
  EXPECT_EQ(gripsOf(song), first);
  EXPECT_THROW(hold(song, "320003"), EditRefused);
  EXPECT_EQ(shapeWritten("x-12-10-x-x-9"), (ChordShape{-1, 12, 10, -1, -1, 9}));
  for (const char* wrong : {"", "x3201", "x320100", "x3201y", "1-2-3-4-5", "1-2-3-4-5-25"})
    EXPECT_FALSE(shapeWritten(wrong)) << wrong;
}

}  // namespace
}  // namespace korvel
