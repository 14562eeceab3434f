// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/QBMatrixLine.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace korvel {
namespace {

constexpr int kCompleteCount = 9;

}  // namespace

void QBMatrixLine::setRun(int column, int n, QBMatrixValue value) {
  if (column < 0) throw std::out_of_range("column " + std::to_string(column));
  const auto at = static_cast<std::size_t>(column);
  const auto count = static_cast<std::size_t>(n);
  if (m_data.size() < at) m_data.resize(at, QBMatrixValue(static_cast<float>(m_empty)));
  const std::size_t known = std::min(count, m_data.size() - at);
  std::fill_n(m_data.begin() + column, known, value);
  m_data.insert(m_data.end(), count - known, value);
}

bool QBMatrixLine::isCompleted() const {
  return std::ranges::count(m_data, 1.0F, &QBMatrixValue::getFloat) >= kCompleteCount;
}

}  // namespace korvel
