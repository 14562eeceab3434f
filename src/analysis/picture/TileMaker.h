// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>

#include "analysis/picture/SoundTile.h"
#include "precise/seeing/FrontEnd.h"

namespace korvel {

/// Makes tiles: those of level 0 as the precise detection sees the sound, before it takes the
/// background out of it; higher partials, which are fainter, are raised.
class TileMaker {
 public:
  /// Samples on both sides of a tile that its first and last frames look at.
  static constexpr std::size_t kMargin = 10 * SoundTile::kSamplesOfColumn;

  /// The scale is laid to the recording's tuning, in cents above 440 Hz.
  explicit TileMaker(double tuningOffset) : m_frontEnd(tuningOffset) {}

  /// Those of the tile, with a margin before and behind it.
  SoundTile ofSamples(std::span<const float> samples);
  /// The samples of the tile itself.
  static SoundTile samplesOf(std::span<const float> samples);
  /// The tile of the next higher level; behind the recording's end there is none.
  static SoundTile halved(const SoundTile& first, const SoundTile* second);

 private:
  void shade(const precise::Recording& recording, SoundTile& tile);

  precise::FrontEnd m_frontEnd;
};

}  // namespace korvel
