// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace korvel {

/// The frequency in Hz that stands at an index of a table of bins.
struct BinTone {
  std::size_t index;
  float frequency;
};

/// A table of that many bins with the tones at their places and 0 elsewhere.
template <std::size_t Bins, std::size_t Tones>
constexpr std::array<float, Bins> binTable(const std::array<BinTone, Tones>& tones) {
  std::array<float, Bins> table{};
  for (const BinTone& tone : tones) table[tone.index] = tone.frequency;
  return table;
}

}  // namespace korvel
