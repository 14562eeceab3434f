// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

namespace korvel::precise {

/// Rows of values that are to be added up, each with a factor: several are added in one go through
/// the sums. To be used again and again, so that nothing is allocated.
class WeightedRows {
 public:
  void clear() { m_rows.clear(); }
  /// The values must stay until the rows are added.
  void collect(float factor, const float* values) { m_rows.push_back({factor, values}); }

  /// sums[j] += factor * values[j] for every row, in the order they were collected; j in [0,
  /// count).
  void addTo(float* sums, std::size_t count) const;

 private:
  struct Row {
    float factor;
    const float* values;
  };

  std::vector<Row> m_rows;
};

}  // namespace korvel::precise
