// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "tab/layout/BarSigns.h"

namespace korvel {

/// What a tablature of a song on beats shows of its rhythm, to be drawn in place of the rows below
/// the strings. Places are columns of the text; the middle of a column is half a column further.
struct TabSigns {
  /// A stem or a rest.
  struct Note {
    int x;    ///< Column of its frets.
    int bar;  ///< Beams and triplets are those of the same bar.
    BarSign sign;
  };
  /// From a column to another on a string.
  struct Line {
    int string;
    double from;
    double to;
  };
  /// Across the strings.
  struct Time {
    int x;
    int columns;
    int beat;
    int beattype;
  };
  struct System {
    std::vector<Note> notes;  ///< From left to right.
    std::vector<Note> lower;  ///< The same of a second voice, below these; without rests.
    std::vector<Line> ties;   ///< Arcs to what only lengthens.
    std::vector<Line> rings;  ///< Where tones sound on under others.
    std::vector<Time> times;
  };
  struct Tempo {
    int x;
    int row;
    int beats;  ///< A minute.
    bool isDotted;
    bool isSwung;
  };

  bool isEmpty() const { return systems.empty(); }

  std::vector<System> systems;
  std::optional<Tempo> tempo;
};

}  // namespace korvel
