// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/CueContrast.h"

#include <algorithm>
#include <cmath>

namespace korvel::rhythm {
namespace {

/// Further onsets make a difference no surer: they repeat what others have said.
constexpr double kMostWeight = 60;
constexpr double kUnit = 4;

}  // namespace

void CueContrast::add(const Onset& onset, bool marked) {
  Sum& sum = marked ? m_marked : m_others;
  sum.weight += onset.weight;
  for (std::size_t i = 0; i < kCues; ++i) {
    sum.values[i] += onset.weight * onset.cues.values()[i];
  }
}

std::array<double, kCues> CueContrast::result() const {
  std::array<double, kCues> result{};
  const double a = m_marked.weight, b = m_others.weight;
  if (a < 1 || b < 1) return result;
  const double sure = std::sqrt(std::min(kMostWeight, a * b / (a + b))) / kUnit;
  for (std::size_t i = 0; i < kCues; ++i) {
    result[i] = sure * (m_marked.values[i] / a - m_others.values[i] / b);
  }
  return result;
}

}  // namespace korvel::rhythm
