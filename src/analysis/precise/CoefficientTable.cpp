// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/CoefficientTable.h"

namespace korvel::precise {

void CoefficientTable::add(std::span<const float> coefficients) {
  for (std::size_t a = 0; a < coefficients.size(); ++a)
    if (coefficients[a] > 0) m_entries.push_back({static_cast<std::uint32_t>(a), coefficients[a]});
  m_ends.push_back(m_entries.size());
}

std::span<const CoefficientTable::Entry> CoefficientTable::row(std::size_t row) const {
  const std::size_t begin = row == 0 ? 0 : m_ends[row - 1];
  return {m_entries.data() + begin, m_ends[row] - begin};
}

}  // namespace korvel::precise
