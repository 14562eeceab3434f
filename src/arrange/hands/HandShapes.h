// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "arrange/harmony/ChordName.h"
#include "music/OpenStrings.h"

namespace korvel {

/// How a hand holds a chord: the fret of each string, the lowest first, and kNotPlayed.
using ChordShape = std::array<int, kStrings>;
inline constexpr int kNotPlayed = -1;

/// Shapes of a chord that four fingers reach, with its root as the lowest tone and all of its tones
/// (of four and more the fifth may be missing): the easiest first, at most so many.
std::vector<ChordShape> shapesOf(const ChordName& name, const OpenStrings& strings,
                                 std::size_t most);

inline constexpr int kFingersOfHand = 4;
/// Chords that are learnt first need no more.
inline constexpr int kFingersOfOpen = 3;

/// How many strings are pressed.
int pressedIn(const ChordShape& shape);
/// Whether a string is open and none is pressed above the third fret.
bool liesOpen(const ChordShape& shape);

/// "x02210", with a hyphen between the strings where a fret has two digits.
std::string shorthandOf(const ChordShape& shape);
/// What was written so; none for any other text.
std::optional<ChordShape> shapeWritten(std::string_view shorthand);

}  // namespace korvel
