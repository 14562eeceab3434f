// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

struct BeatFitSettings {
  Division division = Division::binary;
  double smoothness = 8;          ///< How little the tempo changes; against the weight of an onset.
  std::span<const double> fixed;  ///< Times of beats that stay where they are.
};

/// Moves the beats to where the onsets are, by least squares: each onset stands at the place of its
/// beat that is next to it, and the tempo changes little from beat to beat.
void fitBeats(BeatTrack& track, std::span<const Onset> onsets, const BeatFitSettings& settings);

}  // namespace korvel::rhythm
