// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::fingering {

/// Where on the neck the player is expected to be.
struct Position {
  enum class Kind {
    anywhere,  ///< The hand goes where the notes are easiest to reach.
    open,      ///< The first frets and open strings, and higher only where a note demands it.
    around,    ///< The first finger stays about `fret`, open strings are avoided there.
  };
  Kind kind = Kind::anywhere;
  int fret = 1;  ///< For `around`: of the first finger, counted from the nut.
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
