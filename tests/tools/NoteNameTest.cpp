// SPDX-License-Identifier: GPL-3.0-or-later
#include "calibrate/NoteName.h"

#include <gtest/gtest.h>

namespace korvel::tools {
namespace {

TEST(NoteNameTest, readsNumbersAndNames) {
  EXPECT_EQ(midiNote("40"), 40);
  EXPECT_EQ(midiNote("E2"), 40);
  EXPECT_EQ(midiNote("F#2"), 42);
  EXPECT_EQ(midiNote("Eb3"), 51);
  EXPECT_EQ(midiNote("Cb4"), 59);
  EXPECT_EQ(midiNote("C-1"), 0);
}

TEST(NoteNameTest, refusesAnythingElse) {
  for (const char* text :
       {"", "E", "H2", "e2", "E#", "E2x", "E##2", "2E", "-1", "128", "C99999999"})
    EXPECT_EQ(midiNote(text), std::nullopt) << text;
}

}  // namespace
}  // namespace korvel::tools
