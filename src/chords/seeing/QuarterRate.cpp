// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/QuarterRate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace korvel::chords {
namespace {

/// Of the old rate.
constexpr double kCutoff = 0.1;
/// Louder samples are nonsense, and their squares might overflow.
constexpr float kLoudest = 1e6F;

float heard(float sample) {
  return std::isfinite(sample) ? std::clamp(sample, -kLoudest, kLoudest) : 0;
}

double lowPass(double x) {
  const double angle = 2 * std::numbers::pi * kCutoff * x;
  return x == 0 ? 1 : std::sin(angle) / angle;
}

}  // namespace

QuarterRate::QuarterRate() : m_taps(kTaps), m_waiting(kSide - 1) {
  double sum = 0;
  std::array<double, kTaps> exact{};
  for (std::size_t i = 0; i < kTaps; ++i) {
    const double x = static_cast<double>(i) - (kSide - 1);
    const double hann = 0.5 + 0.5 * std::cos(std::numbers::pi * x / kSide);
    exact[i] = lowPass(x) * hann;
    sum += exact[i];
  }
  for (std::size_t i = 0; i < kTaps; ++i) m_taps[i] = static_cast<float>(exact[i] / sum);
}

void QuarterRate::add(std::span<const float> samples, std::vector<float>& answer) {
  for (const float sample : samples) m_waiting.push_back(heard(sample));
  std::size_t from = 0;
  for (; from + kTaps <= m_waiting.size(); from += kRatio) {
    std::array<float, kRatio> sums{};
    for (std::size_t i = 0; i < kTaps; i += kRatio)
      for (std::size_t k = 0; k < kRatio; ++k) sums[k] += m_taps[i + k] * m_waiting[from + i + k];
    answer.push_back(sums[0] + sums[1] + (sums[2] + sums[3]));
  }
  m_waiting.erase(m_waiting.begin(), m_waiting.begin() + static_cast<std::ptrdiff_t>(from));
}

void QuarterRate::finish(std::vector<float>& answer) {
  static constexpr std::array<float, kSide> kNothing{};
  add(kNothing, answer);
}

}  // namespace korvel::chords
