// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/Chord.h"

#include <initializer_list>

namespace korvel::chords {
namespace {

constexpr int kNotes = 12;

constexpr unsigned toneSet(std::initializer_list<int> steps) {
  unsigned tones = 0;
  for (const int step : steps) tones |= 1U << step;
  return tones;
}

/// In the order of Kind.
constexpr std::array<KindOfChord, kKinds> kAllKinds{{
    {"", "maj", "maj", toneSet({0, 4, 7})},
    {"m", "min", "min", toneSet({0, 3, 7})},
    {"7", "7", "7", toneSet({0, 4, 7, 10})},
    {"m7", "min7", "min7", toneSet({0, 3, 7, 10})},
    {"maj7", "maj7", "maj7", toneSet({0, 4, 7, 11})},
    {"sus4", "sus4", "sus4", toneSet({0, 5, 7})},
    {"dim", "dim", "dim", toneSet({0, 3, 6})},
    {"m7b5", "hdim7", "hdim7", toneSet({0, 3, 6, 10})},
    {"5", "5", "5", toneSet({0, 7})},
    {"sus2", "sus2", "sus2", toneSet({0, 2, 7})},
    {"aug", "aug", "aug", toneSet({0, 4, 8})},
    {"dim7", "dim7", "dim7", toneSet({0, 3, 6, 9})},
    {"6", "maj6", "maj", toneSet({0, 4, 7, 9})},
    {"m6", "min6", "min", toneSet({0, 3, 7, 9})},
    {"add9", "maj(9)", "maj", toneSet({0, 2, 4, 7})},
    {"9", "9", "7", toneSet({0, 2, 4, 7, 10})},
    {"m9", "min9", "min7", toneSet({0, 2, 3, 7, 10})},
    {"maj9", "maj9", "maj7", toneSet({0, 2, 4, 7, 11})},
    {"11", "11", "7", toneSet({0, 2, 4, 5, 7, 10})},
    {"13", "13", "7", toneSet({0, 2, 4, 7, 9, 10})},
}};

}  // namespace

const KindOfChord& of(Kind kind) { return kAllKinds[static_cast<std::size_t>(kind)]; }

unsigned Chord::pitchClasses() const {
  if (isNone()) return 0;
  const unsigned all = (1U << kNotes) - 1;
  const unsigned tones = of(kind).tones;
  return (tones << root | tones >> (kNotes - root)) & all;
}

}  // namespace korvel::chords
