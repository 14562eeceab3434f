// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "rhythm/beats/Onset.h"
#include "rhythm/judging/OnsetPhases.h"

namespace korvel::rhythm {

/// Where onsets are written, in ticks from the first beat of a track.
struct WrittenPlaces {
  std::vector<int> ticks;     ///< Of each onset, never before that of the one before.
  std::vector<int> division;  ///< Of each beat: the ticks from one of its places to the next.
};

struct WritingSettings {
  Division division = Division::binary;
  int finest = 16;  ///< The shortest value: 8 or 16.
};

/// Chooses a division for each beat and a place of it for each onset: what is simple and near.
WrittenPlaces writtenPlaces(std::span<const Onset> onsets, std::span<const Phase> phases,
                            std::size_t beats, const WritingSettings& settings);

}  // namespace korvel::rhythm
