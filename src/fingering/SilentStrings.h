// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// Strings that are silent while a note starts, for notes that no hand was chosen for.
class SilentStrings {
 public:
  /// Of notes that have their places, where none starts on a string before the one there ends.
  /// Frets count as the open strings do.
  SilentStrings(std::span<Note> notes, const OpenPitches& open, int frets);

  /// Gives a note without a string a silent one near what the hand holds, when there is one, and
  /// ends it where the next note there starts.
  void place(Note& note);

 private:
  /// The notes of a string, by onset.
  using Played = std::vector<Note*>;

  std::array<Played, kStrings> m_strings;
  OpenPitches m_open;
  int m_frets = 0;
};

}  // namespace korvel::fingering
