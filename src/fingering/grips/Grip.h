// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "music/Neck.h"

namespace korvel::fingering {

/// One way to play notes that start together. Frets count from the capo.
struct Grip {
  static constexpr std::int8_t kNone = -1;

  std::array<std::int8_t, kStrings> fret{};    ///< By string; kNone for strings left alone.
  std::array<std::int8_t, kStrings> string{};  ///< By note; kNone for a note that is not played.
  int lowest = 0;                              ///< The lowest pressed fret; 0 when none is.
  int highest = 0;
  int played = 0;   ///< Notes that are played.
  int open = 0;     ///< Open strings among them.
  int fingers = 0;  ///< Pressed notes; those at the lowest fret count as one.
  int gaps = 0;     ///< Strings left alone between the outer ones.

  int span() const { return highest - lowest; }
};

/// A grip that plays nothing.
Grip emptyGrip();

}  // namespace korvel::fingering
