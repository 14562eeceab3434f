// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// Numbered 0..5, 0 the lowest-sounding string.
inline constexpr int kStrings = 6;

/// A note that is moved to another string is looked for at frets 0..11, an octave of each string.
inline constexpr int kFretsToMoveTo = 12;

}  // namespace korvel
