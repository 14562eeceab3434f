// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

/// Where an onset stands in its beat.
struct Phase {
  std::size_t beat = 0;
  float share = 0;   ///< Of the beat, 0..1.
  float length = 0;  ///< Of the beat, in seconds.
  /// How probable its time is from each place of the beat and from the beat after it; per second.
  std::array<float, kPlaces + 1> density{};
};

/// Where all onsets of a recording stand in the beats of a track, given how exactly they are
/// played.
class OnsetPhases {
 public:
  /// The track starts before the first onset and ends after the last one.
  OnsetPhases(std::span<const Onset> onsets, const BeatTrack& track);

  /// The width in seconds: the standard deviation of the times of notes.
  void setWidth(double width);

  std::span<const Phase> all() const { return m_phases; }

 private:
  std::vector<Phase> m_phases;
};

}  // namespace korvel::rhythm
