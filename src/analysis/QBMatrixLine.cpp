// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/QBMatrixLine.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace korvel {
namespace {

constexpr int kCompleteCount = 9;

}  // namespace

void QBMatrixLine::setRun(int column, int n, QBMatrixValue value) {
  if (column < 0) throw std::out_of_range("column " + std::to_string(column));
  const auto end = static_cast<std::size_t>(column) + static_cast<std::size_t>(n);
  if (m_data.size() < end) m_data.resize(end, QBMatrixValue(static_cast<float>(m_empty)));
  std::fill_n(m_data.begin() + column, n, value);
}

bool QBMatrixLine::isCompleted() const {
  return std::ranges::count(m_data, 1.0F, &QBMatrixValue::getFloat) >= kCompleteCount;
}

}  // namespace korvel
