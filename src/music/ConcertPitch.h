// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <concepts>

#include "music/Pitch.h"

namespace korvel {

/// The A that instruments are tuned to, as a MIDI number and in hertz.
inline constexpr int kConcertA = 69;
inline constexpr int kHertzOfConcertA = 440;

/// How far a frequency lies above that A, in half tones. In the precision that it is given in.
template <std::floating_point Real>
Real halfTonesAboveConcertA(Real hertz) {
  return kNotesPerOctave * std::log2(hertz / kHertzOfConcertA);
}

/// The MIDI number of the note that is nearest to a frequency. In the precision that it is given
/// in.
template <std::floating_point Real>
int noteOfHertz(Real hertz) {
  return kConcertA + static_cast<int>(std::lround(halfTonesAboveConcertA(hertz)));
}

/// The frequency of a note, which may lie between those of the MIDI numbers.
inline double hertzOfNote(double note) {
  return kHertzOfConcertA * std::exp2((note - kConcertA) / kNotesPerOctave);
}

}  // namespace korvel
