// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/beats/BandedSystem.h"

#include <algorithm>

namespace korvel::rhythm {

void BandedSystem::add(std::size_t first, const std::array<double, kWidth>& factors, double value,
                       double weight) {
  for (std::size_t a = 0; a < kWidth; ++a) {
    if (factors[a] == 0) continue;
    m_right[first + a] += weight * factors[a] * value;
    for (std::size_t b = a; b < kWidth; ++b) {
      if (first + b < m_rows.size()) m_rows[first + a][b - a] += weight * factors[a] * factors[b];
    }
  }
}

std::vector<double> BandedSystem::solve() {
  const std::size_t size = m_rows.size();
  for (std::size_t i = 0; i < size; ++i) {
    const auto row = m_rows[i];
    for (std::size_t a = 1; a < kWidth && i + a < size; ++a) {
      const double factor = row[a] / row[0];
      for (std::size_t b = a; b < kWidth; ++b) m_rows[i + a][b - a] -= factor * row[b];
      m_right[i + a] -= factor * m_right[i];
    }
  }
  for (std::size_t i = size; i-- > 0;) {
    for (std::size_t a = 1; a < kWidth && i + a < size; ++a) {
      m_right[i] -= m_rows[i][a] * m_right[i + a];
    }
    m_right[i] /= m_rows[i][0];
  }
  return std::move(m_right);
}

}  // namespace korvel::rhythm
