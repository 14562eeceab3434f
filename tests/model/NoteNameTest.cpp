// SPDX-License-Identifier: GPL-3.0-or-later
#include "music/NoteName.h"

#include "support/Testing.h"

namespace korvel {
namespace {

TEST(NoteNameTest, readsNumbersAndNames) {
  EXPECT_EQ(midiNote("40"), 40);
  EXPECT_EQ(midiNote("E2"), 40);
  EXPECT_EQ(midiNote("F#2"), 42);
  EXPECT_EQ(midiNote("Eb3"), 51);
  EXPECT_EQ(midiNote("Cb4"), 59);
  EXPECT_EQ(midiNote("C-1"), 0);
}

TEST(NoteNameTest, namesReadBackAsTheirNotes) {
  EXPECT_EQ(noteName(40), "E2");
  EXPECT_EQ(noteName(63), "Eb4");
  for (int midi = 0; midi <= 127; ++midi) EXPECT_EQ(midiNote(noteName(midi)), midi);
}

TEST(NoteNameTest, refusesAnythingElse) {
  for (const char* text :
       {"", "E", "H2", "e2", "E#", "E2x", "E##2", "2E", "-1", "128", "C99999999"})
    EXPECT_EQ(midiNote(text), std::nullopt) << text;
}

}  // namespace
}  // namespace korvel
