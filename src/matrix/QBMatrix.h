// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "matrix/QBMatrixLine.h"

namespace korvel {

/// A grid of cells, addressed by column and row from 0, that grows where it is written. Reading
/// beside it never fails.
class QBMatrix {
 public:
  QBMatrix() : QBMatrix(0) {}
  /// `empty` is the number that the cells get which no one set.
  explicit QBMatrix(int empty) : m_empty(empty) {}
  QBMatrix(const QBMatrix&) = default;
  QBMatrix(QBMatrix&&) = default;
  QBMatrix& operator=(const QBMatrix&) = default;
  QBMatrix& operator=(QBMatrix&&) = default;
  virtual ~QBMatrix() = default;

  /// Puts a cell, with empty rows and filler cells before it as needed. A negative column or row
  /// throws std::out_of_range.
  void set(int column, int row, QBMatrixValue value) { setRun(column, row, 1, value); }
  /// The same for n > 0 cells from the column on.
  void setRun(int column, int row, int n, QBMatrixValue value);

  /// Null where there is no cell; valid until the matrix is changed.
  const QBMatrixValue* get(int column, int row) const;
  /// As get, but null for a cell that holds the filler number as well.
  const QBMatrixValue* hasElement(int column, int row) const;
  int height() const { return static_cast<int>(m_lines.size()); }
  /// One more than the highest column ever set; 1 when nothing was set.
  int width() const { return m_width + 1; }

  /// The numbers as text, the highest row first, two characters a cell, rows ended by CR LF.
  virtual std::string toString() const;
  /// Writes toString as UTF-8, atomically. Throws platform::FileError.
  void saveToFile(const std::filesystem::path& path) const;

 protected:
  std::vector<QBMatrixLine> m_lines;
  int m_width = 0;
  int m_nmbOfSetFields = 0;  ///< For subclasses; the base does not count.
  int m_empty;
};

}  // namespace korvel
