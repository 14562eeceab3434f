// SPDX-License-Identifier: GPL-3.0-or-later
#include "matrix/CellText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvel {

int truncated(float f) {
  using Limits = std::numeric_limits<int>;
  if (std::isnan(f)) return 0;
  return static_cast<int>(
      std::clamp(static_cast<double>(f), double{Limits::min()}, double{Limits::max()}));
}

std::string cellText(float f) {
  const std::string digits = std::to_string(truncated(f));
  return digits.size() < 2 ? " " + digits : digits;
}

}  // namespace korvel
