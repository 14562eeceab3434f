// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace korvel {

/// Numbered 0..5, 0 the lowest-sounding string.
inline constexpr int kStrings = 6;

/// The pitches of the open strings as MIDI numbers, without capo, by string.
using OpenPitches = std::array<int, kStrings>;
inline constexpr OpenPitches kStandardPitches{40, 45, 50, 55, 59, 64};
inline constexpr OpenPitches kDropDPitches{38, 45, 50, 55, 59, 64};

/// A note that is moved to another string is looked for at frets 0..11, an octave of each string.
inline constexpr int kFretsToMoveTo = 12;

}  // namespace korvel
