// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace korvel::rhythm {

/// Least squares whose equations have three neighbouring unknowns each.
class BandedSystem {
 public:
  static constexpr std::size_t kWidth = 3;

  explicit BandedSystem(std::size_t unknowns) : m_rows(unknowns), m_right(unknowns) {}

  /// Adds the equation "sum of factors[k] * unknown[first + k] = value" with a weight. Factors of
  /// unknowns after the last one have to be 0.
  void add(std::size_t first, const std::array<double, kWidth>& factors, double value,
           double weight);

  /// To be called once; the equations have to determine each unknown.
  std::vector<double> solve();

 private:
  /// The upper triangle: m_rows[i][k] is of unknowns i and i + k.
  std::vector<std::array<double, kWidth>> m_rows;
  std::vector<double> m_right;
};

}  // namespace korvel::rhythm
