// SPDX-License-Identifier: GPL-3.0-or-later
#include "chords/seeing/Whitening.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::chords {

Whitening::Whitening() : m_weights(kSide + 1) {
  for (std::size_t i = 0; i <= kSide; ++i) {
    const double angle = std::numbers::pi * static_cast<double>(i) / kSide;
    m_weights[i] = static_cast<float>(0.54 + 0.46 * std::cos(angle));
  }
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    float sum = 0;
    const std::size_t to = std::min(kBins, bin + kSide + 1);
    for (std::size_t k = bin - std::min(bin, kSide); k < to; ++k)
      sum += m_weights[k > bin ? k - bin : bin - k];
    m_scale[bin] = 1 / sum;
  }
}

void Whitening::apply(LogRow& row) const {
  LogRow result{};
  for (std::size_t bin = 0; bin < kBins; ++bin) {
    float sum = 0, squares = 0;
    const std::size_t from = bin - std::min(bin, kSide), to = std::min(kBins, bin + kSide + 1);
    for (std::size_t k = from; k < to; ++k) {
      const float weighed = m_weights[k > bin ? k - bin : bin - k] * row[k];
      sum += weighed;
      squares += weighed * row[k];
    }
    const float mean = sum * m_scale[bin];
    const float deviation = std::sqrt(std::max(0.0F, squares * m_scale[bin] - mean * mean));
    if (row[bin] > mean && deviation > 0) result[bin] = (row[bin] - mean) / deviation;
  }
  row = result;
}

}  // namespace korvel::chords
