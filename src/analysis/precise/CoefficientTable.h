// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace korvel::precise {

/// The atoms that explain the frames of a recording: a few of several hundred in each.
class CoefficientTable {
 public:
  struct Entry {
    std::uint32_t atom;
    float coefficient;
  };

  /// The next row; only what is not 0 is kept.
  void add(std::span<const float> coefficients);

  std::size_t rows() const { return m_ends.size(); }
  std::span<const Entry> row(std::size_t row) const;

 private:
  std::vector<std::size_t> m_ends;
  std::vector<Entry> m_entries;
};

}  // namespace korvel::precise
