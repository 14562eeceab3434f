// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFFTGuitar.h"

#include <algorithm>
#include <functional>

#include "analysis/spectrum/QBFrequencyMapper.h"

namespace korvel {

std::span<const QBFrequency> QBFFTGuitar::frequencies(QBTuning* tuning) {
  if (m_frequencies.empty())
    m_frequencies = pickPeaks(amps(), QBFrequencyMapper::kSmallDFirstBin,
                              QBFrequencyMapper::smallD(tuning), tuning);
  return m_frequencies;
}

std::vector<QBFrequency> QBFFTGuitar::pickPeaks(std::span<const double> amps, std::size_t firstBin,
                                                std::span<const float> tones, QBTuning* tuning) {
  std::vector<QBFrequency> found;
  for (std::size_t i = 0; i < tones.size(); ++i) {
    const double amp = amps[firstBin + i];
    if (amp >= kThreshold && tones[i] != 0.0F) found.emplace_back(tones[i], amp, tuning);
  }
  std::ranges::stable_sort(found, std::greater<>(), &QBFrequency::amplitude);
  return found;
}

}  // namespace korvel
