// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/StrokeFinder.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "chords/seeing/LogScale.h"

namespace korvel::chords {
namespace {

/// Softer lines count by their level, louder ones by its logarithm.
constexpr float kLogFrom = 1.0F / 500;
/// 150 Hz, as a line.
constexpr std::size_t kEndOfLow = 7;
constexpr double kStrongShare = 0.95;
constexpr float kLeastRise = 1e-6F;
/// Frames on each side: a stroke rises most among the near ones, and more than the far ones do.
constexpr std::size_t kNear = 4;
constexpr std::size_t kFar = 40;
constexpr float kAboveMean = 1.5F;
constexpr float kLeastStrength = 0.15F;

float strongOne(std::vector<float> values) {
  if (values.empty()) return kLeastRise;
  const auto at = values.begin() + static_cast<std::ptrdiff_t>(
                                       kStrongShare * static_cast<double>(values.size() - 1));
  std::ranges::nth_element(values, at);
  return std::max(*at, kLeastRise);
}

}  // namespace

/// Silence lies before the first sample, so that frame 0 is centred there.
StrokeFinder::StrokeFinder() : m_window(kWindow), m_waiting(kWindow / 2), m_transform(kWindow) {
  for (std::size_t i = 0; i < kWindow; ++i) {
    const double phase = 2 * std::numbers::pi * static_cast<double>(i) / kWindow;
    m_window[i] = static_cast<float>((1 - std::cos(phase)) / kWindow);
  }
}

void StrokeFinder::add(std::span<const float> samples) {
  m_waiting.insert(m_waiting.end(), samples.begin(), samples.end());
  look();
}

/// Two frames are the two parts of one complex transform.
void StrokeFinder::look() {
  std::size_t from = 0;
  for (; from + kStep + kWindow <= m_waiting.size(); from += 2 * kStep) {
    const auto input = m_transform.input();
    for (std::size_t i = 0; i < kWindow; ++i)
      input[i] = {m_window[i] * m_waiting[from + i], m_window[i] * m_waiting[from + kStep + i]};
    m_transform.run();
    const auto output = m_transform.output();
    Lines first, second;
    for (std::size_t k = 0; k < kLines; ++k) {
      const std::complex<float> mirrored = std::conj(output[(kWindow - k) % kWindow]);
      first[k] = std::log1p(std::abs(output[k] + mirrored) / (2 * kLogFrom));
      second[k] = std::log1p(std::abs(output[k] - mirrored) / (2 * kLogFrom));
    }
    compare(first);
    compare(second);
  }
  m_waiting.erase(m_waiting.begin(), m_waiting.begin() + static_cast<std::ptrdiff_t>(from));
}

void StrokeFinder::compare(const Lines& lines) {
  Rise rise;
  for (std::size_t k = 1; k < kLines; ++k) {
    const float above = lines[k] - std::max(m_before[0][k], m_before[1][k]);
    if (above <= 0) continue;
    rise.all += above;
    if (k < kEndOfLow) rise.low += above;
  }
  m_rises.push_back(rise);
  m_before[0] = m_before[1];
  m_before[1] = lines;
}

std::vector<Stroke> StrokeFinder::take() {
  std::vector<float> all, low;
  for (const Rise& rise : m_rises) {
    all.push_back(rise.all);
    low.push_back(rise.low);
  }
  const float strong = strongOne(all), strongLow = strongOne(low);
  std::vector<Stroke> strokes;
  for (std::size_t t = 0; t < all.size(); ++t) {
    const std::size_t from = t - std::min(t, kNear), to = std::min(all.size(), t + kNear + 1);
    const auto peak = std::max_element(all.begin() + static_cast<std::ptrdiff_t>(from),
                                       all.begin() + static_cast<std::ptrdiff_t>(to));
    if (static_cast<std::size_t>(peak - all.begin()) != t) continue;
    const std::size_t farFrom = t - std::min(t, kFar), farTo = std::min(all.size(), t + kFar + 1);
    float sum = 0;
    for (std::size_t i = farFrom; i < farTo; ++i) sum += all[i];
    const float mean = sum / static_cast<float>(farTo - farFrom);
    if (all[t] < kAboveMean * mean || all[t] < kLeastStrength * strong) continue;
    float lowest = 0;
    for (std::size_t i = from; i < to; ++i) lowest = std::max(lowest, low[i]);
    strokes.push_back(
        {static_cast<double>(t * kStep) / kRate, all[t] / strong, lowest / strongLow});
  }
  return strokes;
}

}  // namespace korvel::chords
