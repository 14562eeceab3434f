// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "exchange/Piece.h"

namespace korvel::exchange {

inline constexpr std::int64_t kGrainsOfWhole = 4 * kGrainsOfQuarter;

/// Lengths in another program's divisions may be that many grains off.
inline constexpr std::int64_t kRounding = 64;

/// As its time signature says. beatType: a power of two up to 64.
constexpr std::int64_t lengthOf(int beats, int beatType) {
  return beats * (kGrainsOfWhole / beatType);
}

/// Gives a bar the length, rounded up to 64ths, and a time signature that says it, with beats as
/// long as they may be.
void fitBar(Bar& bar, std::int64_t length);

}  // namespace korvel::exchange
