// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/LogSpectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace korvel::chords {
namespace {

/// With zeros behind the window, so that low tones meet several lines.
constexpr std::size_t kTransform = 4 * LogSpectrum::kWindow;
constexpr double kLineHertz = kRate / kTransform;
constexpr double kHertzOfA = 440;
constexpr int kNumberOfA = 69;

double hertzOf(std::size_t bin) {
  const double number = kLowestOfScale + static_cast<double>(bin) / kBinsOfSemitone;
  return kHertzOfA * std::exp2((number - kNumberOfA) / 12);
}

/// A bin is as wide as its distance from the next, and never so narrow that it falls between lines.
double halfWidthOf(std::size_t bin) {
  const double distance = hertzOf(bin) * (std::exp2(1.0 / (12 * kBinsOfSemitone)) - 1);
  return std::max(distance, 0.35 * kRate / LogSpectrum::kWindow);
}

}  // namespace

LogSpectrum::LogSpectrum() : m_window(kWindow), m_transform(kTransform) {
  for (std::size_t i = 0; i < kWindow; ++i) {
    const double phase = 2 * std::numbers::pi * static_cast<double>(i) / kWindow;
    m_window[i] = static_cast<float>((1 - std::cos(phase)) / kWindow);
  }
  std::size_t lines = 0;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    const double middle = hertzOf(bin) / kLineHertz, half = halfWidthOf(bin) / kLineHertz;
    Triangle triangle{static_cast<std::size_t>(std::ceil(middle - half)), {}};
    const auto to = static_cast<std::size_t>(std::floor(middle + half));
    double sum = 0;
    for (std::size_t k = triangle.from; k <= to; ++k)
      sum += 1 - std::abs(static_cast<double>(k) - middle) / half;
    for (std::size_t k = triangle.from; k <= to; ++k)
      triangle.weights.push_back(
          static_cast<float>((1 - std::abs(static_cast<double>(k) - middle) / half) / sum));
    lines = std::max(lines, to + 1);
    m_triangles.push_back(std::move(triangle));
  }
  m_magnitudes.fill(std::vector<float>(lines));
}

void LogSpectrum::of(std::span<const float> first, std::span<const float> second, Pair& rows) {
  const auto input = m_transform.input();
  for (std::size_t i = 0; i < kWindow; ++i)
    input[i] = {m_window[i] * first[i], m_window[i] * second[i]};
  m_transform.run();
  const auto lines = m_transform.output();
  // What is mirrored with its sign turned, as the transform of real values is, belongs to the first
  // piece, the rest to the second.
  for (std::size_t k = 0; k < m_magnitudes[0].size(); ++k) {
    const std::complex<float> line = lines[k];
    const std::complex<float> mirrored = std::conj(lines[(kTransform - k) % kTransform]);
    m_magnitudes[0][k] = std::sqrt(std::norm(line + mirrored));
    m_magnitudes[1][k] = std::sqrt(std::norm(line - mirrored));
  }
  for (std::size_t piece = 0; piece < rows.size(); ++piece) {
    for (std::size_t bin = 0; bin < kBins; ++bin) {
      const Triangle& triangle = m_triangles[bin];
      float sum = 0;
      for (std::size_t k = 0; k < triangle.weights.size(); ++k)
        sum += triangle.weights[k] * m_magnitudes[piece][triangle.from + k];
      rows[piece][bin] = sum / 2;
    }
  }
}

}  // namespace korvel::chords
