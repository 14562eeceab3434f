// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "exchange/Piece.h"

namespace korvel::exchange::guitarpro {

/// The key that is written with so many sharps, flats below 0; none for more than there are.
inline std::optional<Key> keyOf(int sharps, bool minor) {
  constexpr int kMostSharps = 8;
  if (sharps < -kMostSharps || sharps > kMostSharps) return std::nullopt;
  const int major = ((sharps * 7) % 12 + 12) % 12;
  return Key{minor ? (major + 9) % 12 : major, minor};
}

}  // namespace korvel::exchange::guitarpro
