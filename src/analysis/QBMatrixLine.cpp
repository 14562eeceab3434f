// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/QBMatrixLine.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace korvel {
namespace {

constexpr int kCompleteCount = 9;

}  // namespace

void QBMatrixLine::set(int column, QBMatrixValue value) {
  if (column < 0) throw std::out_of_range("column " + std::to_string(column));
  const auto at = static_cast<std::size_t>(column);
  if (m_data.size() < at) m_data.resize(at, QBMatrixValue(static_cast<float>(m_empty)));
  if (m_data.size() > at) {
    m_data[at] = value;
  } else {
    m_data.push_back(value);
  }
}

const QBMatrixValue* QBMatrixLine::get(int column) const {
  return column < 0 || column >= length() ? nullptr : &m_data[static_cast<std::size_t>(column)];
}

bool QBMatrixLine::isCompleted() const {
  return std::ranges::count(m_data, 1.0F, &QBMatrixValue::getFloat) >= kCompleteCount;
}

}  // namespace korvel
