// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/QBMatrix.h"

#include <algorithm>
#include <stdexcept>

#include "matrix/CellText.h"
#include "platform/files/Files.h"

namespace korvel {

void QBMatrix::setRun(int column, int row, int n, QBMatrixValue value) {
  if (row < 0) throw std::out_of_range("row " + std::to_string(row));
  const auto at = static_cast<std::size_t>(row);
  if (m_lines.size() <= at) m_lines.resize(at + 1, QBMatrixLine(m_empty));
  m_lines[at].setRun(column, n, value);
  m_width = std::max(m_width, column + n - 1);
}

const QBMatrixValue* QBMatrix::get(int column, int row) const {
  if (row < 0 || row >= height()) return nullptr;
  return m_lines[static_cast<std::size_t>(row)].get(column);
}

const QBMatrixValue* QBMatrix::hasElement(int column, int row) const {
  const QBMatrixValue* cell = get(column, row);
  return cell && cell->getFloat() != static_cast<float>(m_empty) ? cell : nullptr;
}

std::string QBMatrix::toString() const {
  std::string text;
  for (int row = height() - 1; row >= 0; --row) {
    for (int column = 0; column < width(); ++column) {
      const QBMatrixValue* cell = get(column, row);
      text += cell ? cellText(cell->getFloat()) : "  ";
    }
    text += "\r\n";
  }
  return text;
}

void QBMatrix::saveToFile(const std::filesystem::path& path) const {
  platform::writeAtomically(path, toString());
}

}  // namespace korvel
