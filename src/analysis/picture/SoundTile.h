// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "precise/Scale.h"

namespace korvel {

/// A stretch of the picture of a recording, as many columns as any other of its level. A column of
/// level 0 is a frame of the detection, one of a higher level the mean of two of the level below.
/// A tile of the level below 0 has the samples themselves.
struct SoundTile {
  /// Its level, and which of that level's it is, from the recording's beginning on.
  struct Place {
    int level;
    std::int64_t index;
    auto operator<=>(const Place&) const = default;
  };

  /// The lowest and the highest sample of a column; full scale is 32768.
  struct Peak {
    std::int16_t low;
    std::int16_t high;
  };

  static constexpr int kSampleLevel = -1;
  static constexpr std::size_t kColumns = 256;
  static constexpr std::size_t kBins = precise::kBins;
  /// Of the recording, which is at `platform::kSampleRate`.
  static constexpr std::size_t kSamplesOfColumn = 2 * precise::kHop;
  static constexpr std::size_t kSamples = kColumns * kSamplesOfColumn;
  /// What a shade stands for: 255 is full scale, and each that many decibels less.
  static constexpr double kDecibelsOfShade = 0.4;

  std::vector<std::uint8_t> shades{};  ///< kBins from the lowest on for each column in turn.
  std::vector<Peak> peaks{};           ///< One for each column.
  std::vector<std::int16_t> samples{};

  std::size_t bytes() const {
    return sizeof(SoundTile) + shades.size() + peaks.size() * sizeof(Peak) +
           samples.size() * sizeof(std::int16_t);
  }
};

}  // namespace korvel
