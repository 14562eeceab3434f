// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/Detuning.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::chords {
namespace {

constexpr double kCentsOfBin = 100.0 / kBinsOfSemitone;

}  // namespace

void Detuning::add(const LogRow& row) {
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    const double phase =
        2 * std::numbers::pi * static_cast<double>(bin % kBinsOfSemitone) / kBinsOfSemitone;
    m_cosine += static_cast<double>(row[bin]) * std::cos(phase);
    m_sine += static_cast<double>(row[bin]) * std::sin(phase);
  }
}

double Detuning::cents() const {
  if (m_cosine == 0 && m_sine == 0) return 0;
  return 50 / std::numbers::pi * std::atan2(m_sine, m_cosine);
}

void Detuning::mend(LogRow& row, double cents) {
  const LogRow before = row;
  const double shift = cents / kCentsOfBin;
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    const double at =
        std::clamp(static_cast<double>(bin) + shift, 0.0, static_cast<double>(kBins - 1));
    const auto below = std::min(static_cast<std::size_t>(at), kBins - 2);
    const auto share = static_cast<float>(at - static_cast<double>(below));
    row[bin] = (1 - share) * before[below] + share * before[below + 1];
  }
}

}  // namespace korvel::chords
