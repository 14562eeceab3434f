// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel::precise {

/// Gathers the evenly spaced bins of a transform into bins of other centres: each is a mean of the
/// magnitudes around its centre, weighted by a triangle.
class Triangles {
 public:
  /// What the magnitudes are spaced by, in Hz, and the least half width of a triangle.
  struct Grid {
    double spacing;
    double leastHalfWidth;
  };

  /// A triangle rises from centre / ratio to its centre and falls to centre * ratio, all in Hz, but
  /// reaches at least the grid's half width to both sides.
  Triangles(std::span<const double> centres, double ratio, Grid grid);

  std::size_t count() const { return m_rows.size(); }
  /// How many magnitudes are looked at.
  std::size_t reach() const { return m_reach; }
  /// means: count() values. magnitudes: reach() values.
  void apply(std::span<const float> magnitudes, std::span<float> means) const;

 private:
  struct Row {
    std::size_t first;
    std::size_t begin;
    std::size_t end;
  };

  /// Weights [begin, end) are those of the magnitudes from `first` on.
  std::vector<Row> m_rows;
  std::vector<float> m_weights;
  std::size_t m_reach = 0;
};

}  // namespace korvel::precise
