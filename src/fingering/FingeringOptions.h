// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

namespace korvel::fingering {

/// Where on the neck the player is expected to be.
struct Position {
  enum class Kind {
    anywhere,  ///< Where players would go, and for melodies within reach there, in open position.
    open,      ///< The first frets and open strings, and higher only where a note demands it.
    around,    ///< The first finger stays about `fret`, open strings are avoided there.
    towards,   ///< The hand is drawn to `fret`, and goes elsewhere for little.
  };
  Kind kind = Kind::anywhere;
  int fret = 1;  ///< For `around` and `towards`: of the first finger, counted from the nut.
};

/// From a moment on, in seconds, the player is expected there.
struct PositionMark {
  double from = 0;
  Position position{};
};

/// What stands before strings are chosen: the others are chosen around it.
struct Settled {
  static constexpr int kAnyString = -1;

  /// By note: the string that it is on, whatever a hand may think of it, or kAnyString. Those of
  /// all notes when there are fewer.
  std::vector<int> strings{};
  /// By time. Before the first of them the position of the options holds.
  std::vector<PositionMark> positions{};

  int stringOf(std::size_t note) const {
    return note < strings.size() ? strings[note] : kAnyString;
  }
};

/// The guitar, and where on it the notes are played.
struct FingeringOptions {
  static constexpr int kFewestFrets = 12;
  static constexpr int kMostFrets = 24;
  static constexpr int kUsualFrets = 19;
  static constexpr int kHighestCapo = 11;

  int frets = kUsualFrets;  ///< Of the guitar; higher ones are never used.
  int capo = 0;             ///< Fret that it sits on, 0 for none. Nothing below it is played.
  Position position{};
};

}  // namespace korvel::fingering
