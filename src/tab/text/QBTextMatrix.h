// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "matrix/QBMatrix.h"

namespace korvel {

/// A grid of characters: every cell holds one character of UTF-8 text or nothing. Column 0 is at
/// the left. Writing left of column 0 or above row 0 throws std::out_of_range.
class QBTextMatrix : public QBMatrix {
 public:
  using QBMatrix::QBMatrix;

  void setString(int x, int y, std::string_view text);
  /// None where there is no cell; valid until the grid is changed.
  std::optional<std::string_view> getString(int x, int y) const;

  /// Write a text's characters from (x, y) to the right, and downwards.
  void horText(int x, int y, std::string_view text);
  void vertText(int x, int y, std::string_view text);
  /// Draw n cells of "-" to the right, and of "|" downwards.
  void horLine(int x, int y, int n);
  void vertLine(int x, int y, int n);
};

}  // namespace korvel
