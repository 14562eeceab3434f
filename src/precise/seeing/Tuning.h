// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

#include "precise/seeing/SampleStore.h"
#include "precise/seeing/Spectrum.h"

namespace korvel::precise {

/// How far a recording lies above or below A = 440 Hz: the peaks of its spectra vote for where
/// between two semitones they lie.
class Tuning {
 public:
  /// What earlier windows of a long recording voted for.
  struct Earlier {
    std::complex<double> sum{};
    float largest = 0;
  };

  Tuning();

  /// How many windows it takes to cover so many samples.
  static std::size_t windows(std::size_t samples);
  /// Looks at one of them and the next; samples at kRate.
  void look(const SampleStore& samples, std::size_t window);

  /// The result for all that was looked at, in cents, -50..50; 0 when nothing sounds.
  double offset() const {
    Earlier none;
    return offset(none);
  }
  /// The same beside the windows before, to which this one is added.
  double offset(Earlier& earlier) const;
  /// An offset, of which whole semitones cannot be heard, read as near to the expected one as can
  /// be.
  static double nearest(double offset, double expected);

 private:
  struct Peak {
    float magnitude;
    /// In semitones from A, fractions count.
    float position;
  };

  void collect(std::span<const float> magnitudes);

  Spectrum m_spectrum;
  std::vector<Peak> m_peaks;
  float m_largest = 0;
};

}  // namespace korvel::precise
