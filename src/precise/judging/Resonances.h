// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/Scale.h"

namespace korvel::precise {

/// Finds what rings in a recording at low frequencies whatever is played: the body of the
/// instrument and the room. Such a peak is heard as a note that nobody plays, and hides those that
/// are played beside it. A note that is held or played all the time stands out too, but with its
/// overtones; a resonance has none.
/// Show it spectra of frames in which something sounds, then settle, then ask.
class Resonances {
 public:
  /// levels: compressed, as Levels makes them. Of frames that are seconds apart at the most, the
  /// more the better.
  void look(std::span<const float, kBins> levels);
  /// Finds what the frames have in common. seconds: how long the recording sounds; of a short one
  /// little can be told, and of less than two seconds nothing.
  platform::Slices settle(double seconds);

  /// How many were looked at.
  std::size_t frames() const { return m_ratios.size(); }
  bool areNone() const { return m_areNone; }
  /// What the linear magnitudes of each bin are to be multiplied by, so that a resonance stands out
  /// no more; in (0, 1].
  const BinRow& gains() const { return m_gains; }

 private:
  /// Of the bins that are looked at: four times the highest frequency of a resonance.
  static constexpr std::size_t kSeen = 180;
  using Decibels = std::array<double, kSeen>;

  double excessOfOvertones(const Decibels& excess, std::size_t bin) const;

  /// How far each bin stands out from those around it, by frames: ratios of compressed levels.
  std::vector<std::array<float, kSeen>> m_ratios;
  BinRow m_gains = [] {
    BinRow ones;
    ones.fill(1);
    return ones;
  }();
  bool m_areNone = true;
};

}  // namespace korvel::precise
