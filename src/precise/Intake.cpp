// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/Intake.h"

#include <algorithm>
#include <cmath>

namespace korvel::precise {
namespace {

/// Louder samples are nonsense, and their squares might overflow.
constexpr float kLoudest = 1e6F;

float sound(float sample) {
  return std::isfinite(sample) ? std::clamp(sample, -kLoudest, kLoudest) : 0;
}

}  // namespace

std::span<const float> Intake::add(std::span<const float> samples) {
  m_sane.resize(samples.size());
  std::ranges::transform(samples, m_sane.begin(), sound);
  for (const float sample : m_sane) m_energy += static_cast<double>(sample) * sample;
  return m_halver.add(m_sane);
}

}  // namespace korvel::precise
