// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// What indexes by place on the neck are sorted by, such as "2,10". The order is that of texts,
/// fret 10 before fret 2; what walks over such an index relies on it.
inline std::string keyOf(int string, int fret) {
  return std::to_string(string) + ',' + std::to_string(fret);
}

}  // namespace korvel
