// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace korvel {

/// One cell of a matrix: a number and a text. A text grid has millions of cells that hold one
/// character each, so texts of up to four bytes, one UTF-8 character, take no memory of their own.
class QBMatrixValue {
 public:
  QBMatrixValue() = default;
  explicit QBMatrixValue(float f) : m_float(f) {}
  QBMatrixValue(const QBMatrixValue& other);
  QBMatrixValue(QBMatrixValue&&) noexcept = default;
  QBMatrixValue& operator=(QBMatrixValue other) noexcept;
  ~QBMatrixValue() = default;

  void setFloat(float f) { m_float = f; }
  void setString(std::string_view text);

  float getFloat() const { return m_float; }
  /// Valid until the cell is changed or moved.
  std::string_view getString() const;

 private:
  float m_float = 0.0F;
  std::array<char, 4> m_string{' '};
  std::unique_ptr<const std::string> m_longString;
};

}  // namespace korvel
