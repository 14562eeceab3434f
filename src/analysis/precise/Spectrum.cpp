// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

#include "analysis/precise/VectorClones.h"

namespace korvel::precise {
namespace {

KORVEL_VECTOR_CLONES
void multiply(const float* factors, float* values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) values[i] *= factors[i];
}

/// parts: real and imaginary part in turn.
KORVEL_VECTOR_CLONES
void takeMagnitudes(const float* parts, float* magnitudes, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const float re = parts[2 * i];
    const float im = parts[2 * i + 1];
    magnitudes[i] = std::sqrt(re * re + im * im);
  }
}

/// A Hann window whose values add up to 2.
std::vector<float> scaledWindow(std::size_t size) {
  std::vector<float> window(size);
  const auto length = static_cast<double>(size);
  for (std::size_t i = 0; i < size; ++i) {
    const double phase = 2 * std::numbers::pi * static_cast<double>(i) / length;
    window[i] = static_cast<float>((1 - std::cos(phase)) * 2 / length);
  }
  return window;
}

}  // namespace

Spectrum::Spectrum(std::size_t window, std::size_t transform)
    : m_window(scaledWindow(window)), m_transform(transform), m_magnitudes(transform / 2 + 1) {}

std::span<const float> Spectrum::around(const SampleStore& samples, std::ptrdiff_t centre) {
  const std::size_t size = m_window.size();
  const auto input = m_transform.input().first(size);
  samples.read(centre - static_cast<std::ptrdiff_t>(size / 2), input);
  multiply(m_window.data(), input.data(), size);
  m_transform.run();
  // A complex number is laid out as its two parts, by promise of the language.
  takeMagnitudes(reinterpret_cast<const float*>(m_transform.output().data()), m_magnitudes.data(),
                 m_magnitudes.size());
  return m_magnitudes;
}

}  // namespace korvel::precise
