// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Spectrum.h"

#include <cassert>
#include <cmath>
#include <numbers>

#include "analysis/precise/VectorClones.h"

namespace korvel::precise {
namespace {

/// parts: real and imaginary part in turn.
KORVEL_VECTOR_CLONES
void join(const float* window, const float* real, const float* imaginary, float* __restrict parts,
          std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    parts[2 * i] = window[i] * real[i];
    parts[2 * i + 1] = window[i] * imaginary[i];
  }
}

/// Two real pieces were transformed as the two parts of one complex one. What of the transform is
/// mirrored with its sign turned, as that of real values is, belongs to the first, the rest to the
/// second. parts: real and imaginary part in turn; end: the end of all.
KORVEL_VECTOR_CLONES
void takeMagnitudes(const float* parts, const float* end, float* __restrict first,
                    float* __restrict second, std::size_t count) {
  for (std::size_t k = 1; k < count; ++k) {
    const float re = parts[2 * k];
    const float im = parts[2 * k + 1];
    const float mirroredRe = *(end - 2 * k);
    const float mirroredIm = *(end - 2 * k + 1);
    const float re1 = re + mirroredRe;
    const float im1 = im - mirroredIm;
    const float re2 = im + mirroredIm;
    const float im2 = mirroredRe - re;
    first[k] = std::sqrt(re1 * re1 + im1 * im1);
    second[k] = std::sqrt(re2 * re2 + im2 * im2);
  }
}

/// A Hann window whose values add up to 1, as both lines that a sine has are added up.
std::vector<float> scaledWindow(std::size_t size) {
  std::vector<float> window(size);
  const auto length = static_cast<double>(size);
  for (std::size_t i = 0; i < size; ++i) {
    const double phase = 2 * std::numbers::pi * static_cast<double>(i) / length;
    window[i] = static_cast<float>((1 - std::cos(phase)) / length);
  }
  return window;
}

}  // namespace

Spectrum::Spectrum(std::size_t window, std::size_t transform, std::size_t lines)
    : m_window(scaledWindow(window)), m_transform(transform) {
  assert(lines <= transform / 2);
  m_pieces.fill(std::vector<float>(window));
  m_magnitudes.fill(std::vector<float>(lines));
}

Spectrum::Pair Spectrum::around(const SampleStore& samples, std::ptrdiff_t first,
                                std::ptrdiff_t second) {
  const std::size_t size = m_window.size();
  const auto before = static_cast<std::ptrdiff_t>(size / 2);
  samples.read(first - before, m_pieces[0]);
  samples.read(second - before, m_pieces[1]);
  // A complex number is laid out as its two parts, by promise of the language.
  join(m_window.data(), m_pieces[0].data(), m_pieces[1].data(),
       reinterpret_cast<float*>(m_transform.input().data()), size);
  m_transform.run();
  const auto output = m_transform.output();
  const auto* parts = reinterpret_cast<const float*>(output.data());
  m_magnitudes[0][0] = 2 * std::abs(parts[0]);
  m_magnitudes[1][0] = 2 * std::abs(parts[1]);
  takeMagnitudes(parts, parts + 2 * output.size(), m_magnitudes[0].data(), m_magnitudes[1].data(),
                 m_magnitudes[0].size());
  return {m_magnitudes[0], m_magnitudes[1]};
}

}  // namespace korvel::precise
