// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/StrikeNet.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "precise/seeing/VectorClones.h"
#include "precise/striking/StrikeWeights.h"

namespace korvel::precise {
namespace {

/// The logarithm of the odds that are asked for, two to one: in the pieces of the fit strings are
/// struck again more often than elsewhere.
constexpr float kLeastOdds = 0.7F;
/// Of what is below 0, so much goes on.
constexpr float kLeak = 0.1F;

/// One cell after the other, so that every sum is made in the same order.
KORVEL_VECTOR_CLONES
void addUp(const float* cells, std::size_t count, const float* weights, float* __restrict sums,
           std::size_t width) {
  for (std::size_t i = 0; i < count; ++i)
    for (std::size_t k = 0; k < width; ++k) sums[k] += cells[i] * weights[i * width + k];
}

template <std::size_t From, std::size_t To>
std::array<float, To> pass(const std::array<float, From>& cells,
                           const StrikeLayer<From, To>& layer) {
  std::array<float, To> sums = layer.biases;
  addUp(cells.data(), From, layer.weights.data(), sums.data(), To);
  return sums;
}

template <std::size_t Count>
void bend(std::array<float, Count>& cells) {
  for (float& cell : cells) cell = std::max(cell, kLeak * cell);
}

float oddsOf(const StrikeNetwork& network, const StrikeInputs::Inputs& inputs) {
  auto first = pass(inputs, network.first);
  bend(first);
  auto second = pass(first, network.second);
  bend(second);
  return pass(second, network.odds)[0];
}

}  // namespace

bool isStruckAgain(const StrikeInputs::Inputs& inputs) {
  const StrikeWeights& weights = strikeWeights();
  StrikeInputs::Inputs limited;
  for (std::size_t i = 0; i < inputs.size(); ++i)
    limited[i] = std::clamp(inputs[i], weights.least[i], weights.most[i]);
  float sum = 0;
  for (const StrikeNetwork& network : weights.networks) sum += oddsOf(network, limited);
  return sum / StrikeWeights::kNetworks > kLeastOdds;
}

}  // namespace korvel::precise
