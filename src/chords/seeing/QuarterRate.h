// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel::chords {

/// Brings sound to a quarter of its rate, after a low-pass filter (a windowed sinc, symmetric, so
/// that nothing is delayed): sample j of the answer belongs to the moment of sample 4 j. What lies
/// above 0.6 of the new rate's half may be folded down onto what lies above it, too.
class QuarterRate {
 public:
  static constexpr std::size_t kRatio = 4;

  QuarterRate();

  /// Takes the next samples, of any number, and adds those of a quarter of the rate that are
  /// complete to the answer. Nonsense, such as what is not finite, is silence.
  void add(std::span<const float> samples, std::vector<float>& answer);
  /// The last ones, once the sound has ended.
  void finish(std::vector<float>& answer);

 private:
  static constexpr std::size_t kSide = 32;
  static constexpr std::size_t kTaps = 2 * kSide;

  std::vector<float> m_taps;
  std::vector<float> m_waiting;  ///< From the first sample that a further answer needs.
};

}  // namespace korvel::chords
