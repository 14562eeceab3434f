// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "matrix/QBMatrix.h"

namespace korvel {

/// A matrix of numbers. As a position matrix it has one row for each place on the neck, with the
/// fret in column 1 and the string in column 2.
class QBFloatMatrix : public QBMatrix {
 public:
  using QBMatrix::QBMatrix;

  void setFloat(int column, int row, float f) { set(column, row, QBMatrixValue(f)); }
  /// 0 where there is no cell.
  float getFloat(int column, int row) const;
  /// -1 where there is no cell.
  float getFloatOrEmpty(int column, int row) const;

  /// The first row with the lowest fret; 0 when there are no rows. A row without a fret counts as
  /// fret 0.
  int getMinimumFretLine() const;

  /// As the base, but -1 reads "--", -2 "~~" and -3 blank.
  std::string toString() const override;
  /// Replaces the repetitions of a number in a row by -2, so that toString shows it held.
  void comprise();
  /// Appends the rows of another matrix above the highest of this one.
  void addMatrix(const QBFloatMatrix& other);
};

}  // namespace korvel
