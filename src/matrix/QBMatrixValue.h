// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
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
  std::string_view getString() const {
    if (m_string.front() == kLongText) return longText();
    std::size_t size = 0;
    while (size < m_string.size() && m_string[size] != '\0') ++size;
    return {m_string.data(), size};
  }

 private:
  /// No byte of UTF-8: as the first of a cell it says that the other three number a long text.
  static constexpr char kLongText = '\xFF';
  static bool fits(std::string_view text);
  std::string_view longText() const;

  float m_float = 0.0F;
  std::array<char, 4> m_string{' '};
};

}  // namespace korvel
