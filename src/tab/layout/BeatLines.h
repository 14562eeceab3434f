// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "tab/layout/SongBars.h"

namespace korvel {

/// A line of a tablature of a song on beats: bars, whole ones where they fit, and the column of
/// each of their signs.
struct BeatLine {
  struct Cell {
    BarSign sign;
    int chord;
    int from;      ///< Tick of the song.
    int columns;   ///< That it has at least.
    bool isFirst;  ///< Of its chord.
    int x = 0;
    int end = 0;  ///< Column of the next one, or of the bar line.
  };
  /// A bar, or what of it stands on the line.
  struct Part {
    int bar;  ///< Its index.
    bool begins;
    bool ends;
    int x = 0;
    std::optional<int> time = {};  ///< Column of its time signature.
    int end = 0;                   ///< Column of its bar line, or the end of the line.
    std::vector<Cell> cells = {};
  };
  std::vector<Part> parts;
};

/// Columns that a time signature takes.
int columnsOfTime(const SongBars::Bar& bar);

/// The lines of a song, from column `left` to `width`. A sign gets room by the root of its length;
/// what a line has left is shared out in proportion, but for the last one. Lines end at bar lines,
/// in a bar only when that is wider than the line.
std::vector<BeatLine> linesOf(const SongBars& song, int left, int width);

}  // namespace korvel
