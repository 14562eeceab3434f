// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "rhythm/Reading.h"

namespace korvel::rhythm {

/// Whether beats are divided by two or by three; swing is a ternary division.
enum class Division { binary, ternary };

/// The places of a beat on which notes are expected, in ticks.
inline constexpr std::size_t kPlaces = 8;
inline constexpr std::array<int, kPlaces> kPlaceTicks{0, 2, 3, 4, 6, 8, 9, 10};

using PlaceShares = std::array<double, kPlaces>;

/// Which share of all notes stands at each place, over many pieces.
inline const PlaceShares& usualShares(Division division) {
  static constexpr PlaceShares kBinary{.455, .005, .075, .02, .33, .02, .09, .005};
  static constexpr PlaceShares kTernary{.47, .01, .005, .17, .03, .29, .005, .02};
  return division == Division::binary ? kBinary : kTernary;
}

/// How much an accent speaks for a place, -1..1.
inline constexpr PlaceShares kAccentOfPlace{1, -.9, -.9, -.7, -.25, -.5, -.8, -.9};

}  // namespace korvel::rhythm
