// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "precise/seeing/HalfRate.h"
#include "precise/seeing/SampleStore.h"

namespace korvel::precise {

/// The sound that is analysed, at the two rates that are looked at. Fill it with add and finish,
/// then read.
class Recording {
 public:
  /// Samples at the full rate for one at the low rate.
  static constexpr std::ptrdiff_t kLowRateStep = 8;

  /// The next samples at kRate, of any number.
  void add(std::span<const float> samples);
  void finish();

  /// The samples at kRate.
  const SampleStore& full() const { return m_full; }
  /// Those at kRate / kLowRateStep: sample i belongs to the moment of sample kLowRateStep * i of
  /// `full`.
  const SampleStore& low() const { return m_low; }

  /// Gives back what lies before sample `end` of kRate.
  void release(std::ptrdiff_t end);

 private:
  std::array<HalfRate, 3> m_halvers;
  SampleStore m_full;
  SampleStore m_low;
};

}  // namespace korvel::precise
