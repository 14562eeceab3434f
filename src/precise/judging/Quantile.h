// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace korvel::precise {

/// The value that a share, 0..1, of the values lie below, interpolated between the two nearest; 0
/// of no values. Reorders them.
inline float quantile(std::span<float> values, double share) {
  if (values.empty()) return 0;
  const double place = share * static_cast<double>(values.size() - 1);
  const auto below = static_cast<std::ptrdiff_t>(place);
  std::nth_element(values.begin(), values.begin() + below, values.end());
  const float low = values[static_cast<std::size_t>(below)];
  if (below + 1 == std::ssize(values)) return low;
  const float high = *std::min_element(values.begin() + below + 1, values.end());
  return low + static_cast<float>(place - static_cast<double>(below)) * (high - low);
}

}  // namespace korvel::precise
