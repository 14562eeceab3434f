// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace korvel::precise {

/// Halves the rate of a stream of samples, after a low-pass filter (63 taps, a windowed sinc that
/// cuts at 0.46 of the old rate's half and is symmetric, so that nothing is delayed): sample j of
/// the answer belongs to the moment of sample 2 j of the stream.
class HalfRate {
 public:
  HalfRate();

  /// Takes the next samples, of any number, and answers those of half the rate that are complete.
  /// The answer is valid until the next call.
  std::span<const float> add(std::span<const float> samples);
  /// The last ones, once the stream has ended: all in all half of the samples, rounded up.
  std::span<const float> finish();

 private:
  /// Taps on each side of the middle one.
  static constexpr std::size_t kSide = 31;
  static constexpr std::size_t kTaps = 2 * kSide + 1;

  /// Followed by a zero, to make them an even number.
  using Taps = std::array<float, kTaps + 1>;

  static const Taps& taps();
  static Taps computeTaps();

  /// Samples that no later answer needs have left the front; the rest wait here.
  std::vector<float> m_waiting;
  std::vector<float> m_even;
  std::vector<float> m_odd;
  std::vector<float> m_answer;
};

}  // namespace korvel::precise
