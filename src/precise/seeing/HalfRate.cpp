// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/HalfRate.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

constexpr double kCutoff = 0.46;
/// Answers that are computed together.
constexpr std::size_t kTile = 64;
/// Taps that are applied in one go through the answers.
constexpr std::size_t kTogether = 4;

double sinc(double x) {
  const double angle = std::numbers::pi * x;
  return x == 0 ? 1 : std::sin(angle) / angle;
}

/// Of a window that reaches 0 just outside the taps.
double blackman(double x) {
  const double angle = std::numbers::pi * x;
  return 0.42 + 0.5 * std::cos(angle) + 0.08 * std::cos(2 * angle);
}

/// tile[j] += taps[0] * samples[j] + taps[2] * samples[j + 1] + ...
inline void addEveryOther(const float* taps, std::size_t count, const float* samples,
                          float* __restrict tile) {
  for (std::size_t k = 0; k < count; k += kTogether) {
    const float a = taps[2 * k];
    const float b = taps[2 * k + 2];
    const float c = taps[2 * k + 4];
    const float d = taps[2 * k + 6];
    const float* at = samples + k;
    for (std::size_t j = 0; j < kTile; ++j)
      tile[j] += (a * at[j] + b * at[j + 1]) + (c * at[j + 2] + d * at[j + 3]);
  }
}

/// even and odd: the samples of a stream at even and at odd places.
KORVEL_VECTOR_CLONES
void filter(const float* taps, std::size_t side, const float* even, const float* odd, float* answer,
            std::size_t tiles) {
  for (std::size_t i = 0; i < tiles; ++i) {
    float* tile = answer + i * kTile;
    std::fill_n(tile, kTile, 0.0F);
    addEveryOther(taps, side + 1, even + i * kTile, tile);
    addEveryOther(taps + 1, side + 1, odd + i * kTile, tile);
  }
}

}  // namespace

HalfRate::HalfRate() : m_waiting(kSide) {}

const HalfRate::Taps& HalfRate::taps() {
  static const Taps taps = computeTaps();
  return taps;
}

HalfRate::Taps HalfRate::computeTaps() {
  double sum = 0;
  std::array<double, kTaps> exact{};
  for (std::size_t i = 0; i < kTaps; ++i) {
    const double x = static_cast<double>(i) - static_cast<double>(kSide);
    exact[i] = sinc(kCutoff * x) * blackman(x / static_cast<double>(kSide + 1));
    sum += exact[i];
  }
  Taps taps{};
  std::ranges::transform(exact, taps.begin(),
                         [sum](double tap) { return static_cast<float>(tap / sum); });
  return taps;
}

std::span<const float> HalfRate::add(std::span<const float> samples) {
  m_waiting.insert(m_waiting.end(), samples.begin(), samples.end());
  if (m_waiting.size() < kTaps) return {};
  const std::size_t count = (m_waiting.size() - kTaps) / 2 + 1;
  // The last tile is computed whole; what lies beyond the samples only reaches unused answers.
  const std::size_t tiles = (count + kTile - 1) / kTile;
  const std::size_t length = tiles * kTile + kSide + 1;
  m_even.resize(length);
  m_odd.resize(length);
  m_answer.resize(tiles * kTile);
  const std::size_t pairs = std::min(length, m_waiting.size() / 2);
  for (std::size_t j = 0; j < pairs; ++j) {
    m_even[j] = m_waiting[2 * j];
    m_odd[j] = m_waiting[2 * j + 1];
  }
  if (m_waiting.size() % 2 == 1 && pairs < length) m_even[pairs] = m_waiting.back();
  filter(taps().data(), kSide, m_even.data(), m_odd.data(), m_answer.data(), tiles);
  m_waiting.erase(m_waiting.begin(), m_waiting.begin() + static_cast<std::ptrdiff_t>(2 * count));
  return std::span(m_answer).first(count);
}

std::span<const float> HalfRate::finish() {
  static constexpr std::array<float, kSide> kSilence{};
  return add(kSilence);
}

}  // namespace korvel::precise
