// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel {

/// Bars that are played one or more times in a row.
struct FoldedBars {
  std::size_t first = 0;  ///< Of all bars.
  std::size_t count = 0;
  int times = 1;
  std::size_t kind = 0;  ///< The same for the same content; 0, 1, ... by where each comes first.
};

/// Folds bars into sections, in the order in which they are played: what is repeated at once, three
/// times at least where it is less than four bars, and what of four bars and more comes again
/// later. bars: a number for each, the same for the same chords, and negative for a bar of one
/// chord, which by itself is no loop.
std::vector<FoldedBars> foldedBars(std::span<const int> bars);

}  // namespace korvel
