// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Triangles.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace korvel::precise {
namespace {

/// 1 at the centre, 0 at the feet and beyond.
double triangle(double x, double low, double centre, double high) {
  return std::max(0.0, x < centre ? (x - low) / (centre - low) : (high - x) / (high - centre));
}

}  // namespace

Triangles::Triangles(std::span<const double> centres, double ratio, Grid grid) {
  for (const double centre : centres) {
    const double low = std::min(centre / ratio, centre - grid.leastHalfWidth);
    const double high = std::max(centre * ratio, centre + grid.leastHalfWidth);
    const double firstLine = std::max(0.0, std::ceil(low / grid.spacing));
    const auto first = static_cast<std::size_t>(firstLine);
    const auto end = static_cast<std::size_t>(std::floor(high / grid.spacing)) + 1;
    std::vector<double> weights;
    double sum = 0;
    for (std::size_t k = first; k < end; ++k) {
      weights.push_back(triangle(static_cast<double>(k) * grid.spacing, low, centre, high));
      sum += weights.back();
    }
    m_reach = std::max(m_reach, end);
    m_rows.push_back({first, m_weights.size(), m_weights.size() + weights.size()});
    for (const double weight : weights) m_weights.push_back(static_cast<float>(weight / sum));
  }
}

void Triangles::apply(std::span<const float> magnitudes, std::span<float> means) const {
  assert(means.size() == m_rows.size());
  for (std::size_t i = 0; i < m_rows.size(); ++i) {
    const Row& row = m_rows[i];
    float sum = 0;
    for (std::size_t k = row.begin; k < row.end; ++k)
      sum += m_weights[k] * magnitudes[row.first + k - row.begin];
    means[i] = sum;
  }
}

}  // namespace korvel::precise
