// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// Ratio of neighbouring frets, in the precision that the fret frequencies are computed with.
inline constexpr float kSemitone = 1.0594631F;
/// The same in double precision, for the bands around open strings and detected intervals.
inline constexpr double kSemitoneExact = 1.059463094359295;

inline constexpr int kNotesPerOctave = 12;

/// The pitch class of a note, 0..11 also for negative ones.
constexpr int pitchClass(int note) {
  return (note % kNotesPerOctave + kNotesPerOctave) % kNotesPerOctave;
}

}  // namespace korvel
