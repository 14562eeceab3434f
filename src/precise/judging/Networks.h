// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvel::precise {

/// A layer of a network: what each of its cells adds up of the cells before, and what it adds to
/// that.
template <std::size_t From, std::size_t To>
struct Layer {
  /// One cell of the layer before after the other: its weights in all cells of this one.
  std::array<float, From * To> weights;
  std::array<float, To> biases;
};

/// A network that tells the odds of one thing.
template <std::size_t Inputs>
struct Network {
  /// What is hidden between the inputs and the odds.
  static constexpr std::size_t kFirst = 24;
  static constexpr std::size_t kSecond = 8;

  Layer<Inputs, kFirst> first;
  Layer<kFirst, kSecond> second;
  Layer<kSecond, 1> odds;
};

/// Networks that were fitted to the same from other beginnings, by tools/detection. The mean of
/// what they say is better than each.
template <std::size_t Inputs, std::size_t Count>
struct Networks {
  /// Where the inputs lay in nearly all of what the weights were fitted on; others are taken as the
  /// nearest of these.
  std::array<float, Inputs> least;
  std::array<float, Inputs> most;
  std::array<Network<Inputs>, Count> networks;
};

/// Adds to each of `width` sums the weighted cells, one cell after the other, so that every sum is
/// made in the same order on every machine.
void addUp(const float* cells, std::size_t count, const float* weights, float* sums,
           std::size_t width);

template <std::size_t From, std::size_t To>
std::array<float, To> pass(const std::array<float, From>& cells, const Layer<From, To>& layer) {
  std::array<float, To> sums = layer.biases;
  addUp(cells.data(), From, layer.weights.data(), sums.data(), To);
  return sums;
}

/// Of what is below 0, a tenth goes on.
template <std::size_t Count>
void bend(std::array<float, Count>& cells) {
  for (float& cell : cells) cell = std::max(cell, 0.1F * cell);
}

/// The logarithm of the odds.
template <std::size_t Inputs>
float logOdds(const Network<Inputs>& network, const std::array<float, Inputs>& inputs) {
  auto first = pass(inputs, network.first);
  bend(first);
  auto second = pass(first, network.second);
  bend(second);
  return pass(second, network.odds)[0];
}

template <std::size_t Inputs, std::size_t Count>
float logOdds(const Networks<Inputs, Count>& all, const std::array<float, Inputs>& inputs) {
  std::array<float, Inputs> limited;
  for (std::size_t i = 0; i < Inputs; ++i)
    limited[i] = std::clamp(inputs[i], all.least[i], all.most[i]);
  float sum = 0;
  for (const Network<Inputs>& network : all.networks) sum += logOdds(network, limited);
  return sum / static_cast<float>(Count);
}

}  // namespace korvel::precise
