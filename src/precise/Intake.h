// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "precise/seeing/HalfRate.h"

namespace korvel::precise {

/// Takes the samples of a recording in as the detection looks at them: sane ones, at half the rate.
class Intake {
 public:
  /// The next samples, of any number, mono, kInputRate of them a second. Answers what is complete
  /// of them at kRate, valid until the next call.
  std::span<const float> add(std::span<const float> samples);
  /// The last ones, once the recording has ended.
  std::span<const float> finish() { return m_halver.finish(); }
  /// The sum of the squares of all samples so far.
  double energy() const { return m_energy; }

 private:
  HalfRate m_halver;
  std::vector<float> m_sane;
  double m_energy = 0;
};

}  // namespace korvel::precise
