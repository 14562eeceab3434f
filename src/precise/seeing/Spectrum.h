// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <complex>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/numerics/FourierTransform.h"
#include "precise/seeing/SampleStore.h"

namespace korvel::precise {

/// Magnitudes of pieces of sound under a Hann window, scaled so that a sine of amplitude 1 has
/// magnitude 1 at its frequency. Two pieces at a time, which take hardly longer than one.
class Spectrum {
 public:
  /// A window of that many samples, followed by zeros up to the length of the transform, of which
  /// the first `lines` magnitudes are wanted, at most half its length.
  Spectrum(std::size_t window, std::size_t transform, std::size_t lines);

  using Pair = std::array<std::span<const float>, 2>;

  /// The magnitudes with the window's middle at each of two samples: line k, of
  /// k * rate / transform Hz, for k in [0, lines). Valid until the next call.
  Pair around(const SampleStore& samples, std::ptrdiff_t first, std::ptrdiff_t second);

  /// The complex values whose magnitudes the last call answered, in an arbitrary scale: real parts
  /// of all lines, then imaginary ones.
  std::array<std::span<const float>, 2> parts() const { return {m_parts[0], m_parts[1]}; }

 private:
  std::vector<float> m_window;
  std::array<std::vector<float>, 2> m_pieces;
  platform::SingleComplexTransform m_transform;
  std::vector<std::complex<float>> m_mirrored;
  std::array<std::vector<float>, 2> m_parts;
  std::array<std::vector<float>, 2> m_magnitudes;
};

}  // namespace korvel::precise
