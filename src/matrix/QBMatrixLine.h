// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "matrix/QBMatrixValue.h"

namespace korvel {

/// One row of a matrix; it reaches as far as its last cell that was set.
class QBMatrixLine {
 public:
  /// `empty` is the number that the cells get which no one set.
  explicit QBMatrixLine(int empty) : m_empty(empty) {}

  /// Puts a cell at a column, with filler cells before it where the row was shorter. A negative
  /// column throws std::out_of_range.
  void set(int column, QBMatrixValue value) { setRun(column, 1, value); }
  /// The same for n > 0 cells from the column on.
  void setRun(int column, int n, QBMatrixValue value);

  /// Null beside the row; valid until the row is changed.
  const QBMatrixValue* get(int column) const {
    return column < 0 || column >= length() ? nullptr : &m_data[static_cast<std::size_t>(column)];
  }
  int length() const { return static_cast<int>(m_data.size()); }
  /// True when at least nine cells hold 1.0.
  bool isCompleted() const;

 private:
  std::vector<QBMatrixValue> m_data;
  int m_empty;
};

}  // namespace korvel
