// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "chords/seeing/LogScale.h"
#include "platform/numerics/FourierTransform.h"

namespace korvel::chords {

/// Magnitudes of pieces of sound on the logarithmic scale: those of a Fourier transform, weighed by
/// a triangle for each bin.
class LogSpectrum {
 public:
  /// Samples at kRate of a piece.
  static constexpr std::size_t kWindow = 4096;

  LogSpectrum();

  using Pair = std::array<LogRow, 2>;
  /// Of two pieces of kWindow samples, which take hardly longer than one.
  void of(std::span<const float> first, std::span<const float> second, Pair& rows);

 private:
  /// Which lines of the transform a bin is made of.
  struct Triangle {
    std::size_t from = 0;
    std::vector<float> weights;
  };

  std::vector<float> m_window;
  std::vector<Triangle> m_triangles;
  platform::SingleComplexTransform m_transform;
  std::array<std::vector<float>, 2> m_magnitudes;
};

}  // namespace korvel::chords
