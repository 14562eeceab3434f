// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "rhythm/beats/Onset.h"
#include "rhythm/judging/OnsetPhases.h"

namespace korvel::rhythm {

/// How many onsets a piece counts for in the scores, however long it is: a pattern that repeats is
/// not many witnesses.
inline constexpr double kWitnesses = 28.6;
/// The share of onsets that stand anywhere in the beat.
inline constexpr double kAnywhere = 0.10;

/// How well onsets stand on the places of beats.
struct PlaceFit {
  double score = 0;       ///< A logarithm, in comparison with onsets that stand anywhere.
  double unlike = 0;      ///< What the score has lost as the profile is not the usual one.
  PlaceShares profile{};  ///< Which share of this piece's onsets stands at each place.
  double width = 0;       ///< How exactly they do, in seconds.
};

/// The fit at the width that the phases were given.
PlaceFit placeFit(std::span<const Onset> onsets, std::span<const Phase> phases, Division division);

/// The best fit over several widths, which the phases have afterwards.
PlaceFit bestPlaceFit(std::span<const Onset> onsets, OnsetPhases& phases, Division division);

}  // namespace korvel::rhythm
