// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

#include "music/ChordStep.h"

namespace korvel {

/// Exact places and lengths in music are counted in ticks: twelfths of a beat, so that sixteenths
/// and triplets are whole. A beat is a quarter, in compound time a dotted quarter.
inline constexpr int kTicksOfBeat = 12;

/// In beats of three eighths, such as 6/8. The time signature may be what a store says.
inline bool isCompound(int beat, int beattype) {
  return beattype == 8 && beat > 0 && beat % 3 == 0;
}

inline int ticksOfSixteenth(bool compound) { return compound ? 2 : 3; }

/// Length of a bar; 0 for a time signature that is none.
inline int ticksOfBar(int beat, int beattype) {
  if (beat <= 0 || beattype <= 0) return 0;
  return beat * (kSixteenthsOfWhole / beattype) * ticksOfSixteenth(isCompound(beat, beattype));
}

/// Length of what lasts from a tick to another, counted from the same bar line, in sixteenths: the
/// places are rounded, so that the sixteenths of a bar add up to it, and what is shorter than one
/// may have none.
inline int sixteenthsBetween(int from, int to, bool compound) {
  const int unit = ticksOfSixteenth(compound);
  const auto rounded = [unit](int tick) {
    const int shifted = 2 * tick + unit;
    return shifted >= 0 ? shifted / (2 * unit) : -((2 * unit - 1 - shifted) / (2 * unit));
  };
  return rounded(to) - rounded(from);
}

/// The same of what lasts by itself, such as a tone: one at least.
inline int sixteenthsAlone(int from, int to, bool compound) {
  return std::max(sixteenthsBetween(from, to, compound), 1);
}

}  // namespace korvel
