// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "precise/striking/StrikeInputs.h"

namespace korvel::precise {

/// A layer of a network: what each of its cells adds up of the cells before, and what it adds to
/// that.
template <std::size_t From, std::size_t To>
struct StrikeLayer {
  /// One cell of the layer before after the other: its weights in all cells of this one.
  std::array<float, From * To> weights;
  std::array<float, To> biases;
};

/// A network that tells whether a string was struck again.
struct StrikeNetwork {
  /// What is hidden between the inputs and the odds.
  static constexpr std::size_t kFirst = 24;
  static constexpr std::size_t kSecond = 8;

  StrikeLayer<StrikeInputs::kCount, kFirst> first;
  StrikeLayer<kFirst, kSecond> second;
  StrikeLayer<kSecond, 1> odds;
};

/// Networks that were fitted to the same from other beginnings, by tools/detection/strikes.py. The
/// mean of what they say is better than each.
struct StrikeWeights {
  static constexpr std::size_t kNetworks = 3;

  /// Where the inputs lay in nearly all of what the weights were fitted on; others are taken as the
  /// nearest of these.
  std::array<float, StrikeInputs::kCount> least;
  std::array<float, StrikeInputs::kCount> most;
  std::array<StrikeNetwork, kNetworks> networks;
};
const StrikeWeights& strikeWeights();

}  // namespace korvel::precise
