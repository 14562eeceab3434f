// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/deck/Crossfade.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numbers>

namespace korvel::platform {
namespace {

constexpr std::size_t kSidesOfFrame = 2;

/// Of a frame between the beginning and the end of a fade, 0 to a quarter turn.
float angleOf(std::size_t sample, std::size_t samples) {
  const auto frames = static_cast<float>(samples / kSidesOfFrame);
  return (static_cast<float>(sample / kSidesOfFrame) + 0.5F) / frames * std::numbers::pi_v<float> /
         2;
}

/// How alike two sounds are: 1 the same, 0 for those that have nothing in common.
float likeness(std::span<const float> a, std::span<const float> b) {
  double both = 0, first = 0, second = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    both += static_cast<double>(a[i]) * b[i];
    first += static_cast<double>(a[i]) * a[i];
    second += static_cast<double>(b[i]) * b[i];
  }
  const double norm = std::sqrt(first * second);
  return norm > 0 ? static_cast<float>(std::clamp(both / norm, 0.0, 1.0)) : 0;
}

}  // namespace

void crossfade(std::span<float> old, std::span<const float> fresh) {
  assert(old.size() == fresh.size());
  const float alike = likeness(old, fresh);
  for (std::size_t i = 0; i < old.size(); ++i) {
    const float angle = angleOf(i, old.size());
    const float out = std::cos(angle), in = std::sin(angle);
    old[i] = (out * old[i] + in * fresh[i]) / std::sqrt(1 + 2 * alike * out * in);
  }
}

void fadeIn(std::span<float> samples) {
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] *= std::sin(angleOf(i, samples.size()));
}

void fadeOut(std::span<float> samples) {
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] *= std::cos(angleOf(i, samples.size()));
}

}  // namespace korvel::platform
