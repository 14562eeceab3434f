// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How things on a page of chords are spaced, in heights of a line of plain letters.

namespace korvel::ui::spacing {

inline constexpr double kLetterColumn = 2.2;  ///< For the letters of sections, on the left.
inline constexpr double kTimesColumn = 2;     ///< For how often a section is played, on the right.
inline constexpr double kBetweenLines = 0.5;
inline constexpr double kBetweenSections = 0.6;
inline constexpr double kPad = 0.4;  ///< Behind a bar line.
inline constexpr double kBetweenChords = 0.5;
inline constexpr double kRepeatWidth = 0.5;  ///< Of the points behind a line that opens a repeat.

/// Letters get no smaller than this share of themselves where they are too many for a width.
inline constexpr double kSmallestScale = 0.55;

}  // namespace korvel::ui::spacing
