// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvel {

/// Ratio of neighbouring frets, in the precision that the fret frequencies are computed with.
inline constexpr float kSemitone = 1.0594631F;
/// The same in double precision, for the bands around open strings and detected intervals.
inline constexpr double kSemitoneExact = 1.059463094359295;

inline constexpr int kNotesPerOctave = 12;

/// The highest MIDI number; the lowest is 0.
inline constexpr int kHighestNote = 127;

/// The pitch class of a note, 0..11 also for negative ones.
constexpr int pitchClass(int note) {
  return (note % kNotesPerOctave + kNotesPerOctave) % kNotesPerOctave;
}

/// The sum of notes, frets or distances. What files and stores say may be anything, so it stops at
/// the ends of int.
constexpr int addNotes(int a, int b) {
  const auto sum = static_cast<std::int64_t>(a) + b;
  constexpr std::int64_t kLowest = std::numeric_limits<int>::min();
  constexpr std::int64_t kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(sum, kLowest, kHighest));
}

}  // namespace korvel
