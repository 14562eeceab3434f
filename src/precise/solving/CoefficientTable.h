// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvel::precise {

/// The atoms that explain the frames of a recording: a few of several hundred in each. Grows
/// without moving what it holds, as that would take long.
class CoefficientTable {
 public:
  struct Entry {
    std::uint32_t atom;
    float coefficient;
  };

  CoefficientTable() = default;
  CoefficientTable(const CoefficientTable&) = delete;
  CoefficientTable(CoefficientTable&&) = default;
  CoefficientTable& operator=(const CoefficientTable&) = delete;
  CoefficientTable& operator=(CoefficientTable&&) = default;

  /// The next row; only what is not 0 is kept.
  void add(std::span<const float> coefficients);

  std::size_t rows() const { return m_rows.size(); }
  std::span<const Entry> row(std::size_t row) const { return m_rows[row]; }

 private:
  std::vector<std::vector<Entry>> m_pieces;
  std::vector<std::span<const Entry>> m_rows;
};

}  // namespace korvel::precise
