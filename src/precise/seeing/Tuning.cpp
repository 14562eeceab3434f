// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Tuning.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <span>

#include "music/ConcertPitch.h"
#include "precise/Scale.h"

namespace korvel::precise {
namespace {

constexpr std::size_t kWindow = 8192;
constexpr std::size_t kStep = 4096;
/// Where strings and their lower overtones sound.
constexpr double kLowest = 110;
constexpr double kHighest = 1400;
/// A peak counts from these shares of the largest magnitude of its window and of the recording.
constexpr float kShareOfWindow = 0.1F;
constexpr float kShareOfRecording = 0.02F;

std::size_t binOf(double frequency) {
  return static_cast<std::size_t>(frequency / kRate * static_cast<double>(kWindow));
}

/// Above two neighbours on each side.
bool isPeak(std::span<const float> magnitudes, std::size_t k) {
  const float here = magnitudes[k];
  return here > magnitudes[k - 2] && here > magnitudes[k - 1] && here > magnitudes[k + 1] &&
         here > magnitudes[k + 2];
}

/// The bin, with its fraction, of the top of a parabola through the logarithms. A top may be so
/// flat that these are no different.
double topOf(std::span<const float> magnitudes, std::size_t k) {
  constexpr float kTiny = 1e-20F;
  const double before = std::log(magnitudes[k - 1] + kTiny);
  const double here = std::log(magnitudes[k] + kTiny);
  const double after = std::log(magnitudes[k + 1] + kTiny);
  const double curvature = before - 2 * here + after;
  if (!(curvature < 0)) return static_cast<double>(k);
  return static_cast<double>(k) + std::clamp(0.5 * (before - after) / curvature, -0.5, 0.5);
}

}  // namespace

/// The highest peak is compared with two neighbours.
Tuning::Tuning() : m_spectrum(kWindow, kWindow, binOf(kHighest) + 3) {}

std::size_t Tuning::windows(std::size_t samples) { return (samples + kStep - 1) / kStep; }

void Tuning::look(const SampleStore& samples, std::size_t window) {
  const auto centre = static_cast<std::ptrdiff_t>(window * kStep + kStep / 2);
  const auto step = static_cast<std::ptrdiff_t>(kStep);
  for (const auto magnitudes : m_spectrum.around(samples, centre, centre + step))
    collect(magnitudes);
}

void Tuning::collect(std::span<const float> magnitudes) {
  const std::size_t first = binOf(kLowest);
  const std::size_t end = binOf(kHighest) + 1;
  const float largest = std::ranges::max(magnitudes.subspan(first, end - first));
  m_largest = std::max(m_largest, largest);
  for (std::size_t k = first; k < end; ++k) {
    if (magnitudes[k] <= kShareOfWindow * largest || !isPeak(magnitudes, k)) continue;
    const double frequency = topOf(magnitudes, k) * kRate / static_cast<double>(kWindow);
    m_peaks.push_back({magnitudes[k], static_cast<float>(halfTonesAboveConcertA(frequency))});
  }
}

double Tuning::nearest(double offset, double expected) {
  constexpr double kSemitone = 100;
  return offset + kSemitone * std::round((expected - offset) / kSemitone);
}

double Tuning::offset(Earlier& earlier) const {
  auto& [sum, largest] = earlier;
  largest = std::max(largest, m_largest);
  for (const Peak& peak : m_peaks) {
    if (peak.magnitude <= kShareOfRecording * largest) continue;
    sum += std::polar<double>(std::sqrt(peak.magnitude), 2 * std::numbers::pi * peak.position);
  }
  return 100 * std::arg(sum) / (2 * std::numbers::pi);
}

}  // namespace korvel::precise
