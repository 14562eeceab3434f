// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Spectrum.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <numbers>

#include "precise/seeing/VectorClones.h"

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
/// second. parts: real and imaginary part in turn; mirrored: the same from the end, so that line
/// k meets the line that mirrors it.
KORVEL_VECTOR_CLONES
void separate(const float* parts, const float* mirrored, float* __restrict first,
              float* __restrict second, std::size_t count) {
  for (std::size_t k = 0; k < count; ++k) {
    first[k] = parts[2 * k] + mirrored[2 * k];
    first[count + k] = parts[2 * k + 1] - mirrored[2 * k + 1];
    second[k] = parts[2 * k + 1] + mirrored[2 * k + 1];
    second[count + k] = mirrored[2 * k] - parts[2 * k];
  }
}

KORVEL_VECTOR_CLONES
void takeMagnitudes(const float* parts, float* __restrict magnitudes, std::size_t count) {
  for (std::size_t k = 0; k < count; ++k)
    magnitudes[k] = std::sqrt(parts[k] * parts[k] + parts[count + k] * parts[count + k]);
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
    : m_window(scaledWindow(window)), m_transform(transform), m_mirrored(lines) {
  assert(lines <= transform / 2);
  m_pieces.fill(std::vector<float>(window));
  m_parts.fill(std::vector<float>(2 * lines));
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
  m_mirrored[0] = output[0];
  std::ranges::reverse_copy(output.last(m_mirrored.size() - 1), m_mirrored.begin() + 1);
  separate(reinterpret_cast<const float*>(output.data()),
           reinterpret_cast<const float*>(m_mirrored.data()), m_parts[0].data(), m_parts[1].data(),
           m_mirrored.size());
  for (std::size_t i = 0; i < m_parts.size(); ++i)
    takeMagnitudes(m_parts[i].data(), m_magnitudes[i].data(), m_mirrored.size());
  return {m_magnitudes[0], m_magnitudes[1]};
}

}  // namespace korvel::precise
