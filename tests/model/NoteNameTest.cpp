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

TEST(NoteNameTest, keysChooseBetweenSharpsAndFlats) {
  const auto black = [](int key) {
    std::string names;
    for (const int note : {1, 3, 6, 8, 10}) names += std::string(nameInKey(note, key)) + ' ';
    return names;
  };
  EXPECT_EQ(black(0), "C# Eb F# Ab Bb ") << "C";
  EXPECT_EQ(black(5), "Db Eb F# Ab Bb ") << "F";
  EXPECT_EQ(black(3), "Db Eb Gb Ab Bb ") << "Eb";
  EXPECT_EQ(black(4), "C# D# F# G# A# ") << "E";
  EXPECT_EQ(black(12 + 9), "C# D# F# G# Bb ") << "Am";
  EXPECT_EQ(black(12 + 3), "Db Eb Gb Ab Bb ") << "Ebm";
  EXPECT_EQ(black(12 + 8), "C# D# F# G# A# ") << "G#m";
  EXPECT_EQ(black(-1), "C# Eb F# Ab Bb ") << "none";
}

}  // namespace
}  // namespace korvel
