// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "rhythm/judging/PlaceFit.h"

namespace korvel::rhythm {

/// The most beats of a bar that are told apart.
inline constexpr std::size_t kMostBeats = 7;

/// Which beats of a track are bar lines: every `beats`-th from `first` on.
struct Bars {
  std::size_t beats = 4;
  std::size_t first = 0;

  /// Which beat of its bar a beat of the track is, from 0.
  std::size_t of(std::size_t beat) const { return (beat + beats - first) % beats; }
};

/// How well onsets stand on the places of bars: as placeFit does for beats, with a profile of each
/// beat of the bar. A logarithm.
double barFit(std::span<const Onset> onsets, std::span<const Phase> phases, const PlaceFit& beats,
              const Bars& bars);

}  // namespace korvel::rhythm
