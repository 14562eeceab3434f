// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "chords/Chord.h"

namespace korvel::chords {

enum class Mode : std::uint8_t { major, minor, blues };
inline constexpr std::size_t kModes = 3;
inline constexpr std::size_t kKeys = kModes * 12;

/// Whether a chord is at home in a key.
enum class Home : std::uint8_t { own, borrowed, foreign };

/// Of a chord whose root is so many semitones above the tonic, of one of the searched kinds.
Home homeOf(Mode mode, int degree, Kind kind);

}  // namespace korvel::chords
