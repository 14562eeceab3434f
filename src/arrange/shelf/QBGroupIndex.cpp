// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroupIndex.h"

#include <algorithm>

namespace korvel {

void QBGroupIndex::addPosition(int index) {
  m_positions.insert(std::ranges::upper_bound(m_positions, index), index);
}

int QBGroupIndex::firstPosition() {
  m_cursor = 1;
  return m_positions.empty() ? kNoPosition : m_positions.front();
}

int QBGroupIndex::nextPosition() {
  return m_cursor < m_positions.size() ? m_positions[m_cursor++] : kNoPosition;
}

void QBGroupIndex::removeFirstPosition() {
  if (!m_positions.empty()) m_positions.erase(m_positions.begin());
}

}  // namespace korvel
