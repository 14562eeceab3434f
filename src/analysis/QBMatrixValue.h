// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

namespace korvel {

/// One cell of a matrix: a number and a text.
///
/// A text grid has millions of cells that hold one character each, so a cell is eight bytes with
/// room for a text of four, one UTF-8 character. Longer texts are kept once each for as long as the
/// program runs. Main thread only.
class QBMatrixValue {
 public:
  QBMatrixValue() = default;
  explicit QBMatrixValue(float f) : m_float(f) {}

  void setFloat(float f) { m_float = f; }
  void setString(std::string_view text);

  float getFloat() const { return m_float; }
  /// Valid until the cell is changed or moved.
  std::string_view getString() const;

 private:
  float m_float = 0.0F;
  std::array<char, 4> m_string{' '};
};

}  // namespace korvel
