// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "fingering/Note.h"

namespace korvel {

/// A note that was heard in a song's recording, with what the song has of it.
struct JudgedNote {
  std::size_t number = 0;  ///< Under which the user names it.
  fingering::Note note;
  int chord = 0;    ///< Position of the chord that it is struck in; 0 for none.
  int bar = 0;      ///< 0 for a pick-up, and in a song without bars.
  double beat = 0;  ///< In the bar, the first one being 1; 0 in a song without bars.
  bool isIn = false;
  bool isLocked = false;
  std::string doubt;  ///< What may be wrong; empty where nothing is doubted.
};

/// {"notes": [...], "candidates": [...]}: those that the song has and those that it has not, each
/// {"number", "chord", "bar", "beat", "onset", "offset", "midi", "string", "fret", "probability",
/// "locked", "doubt"} with times in seconds, strings from 0 for the lowest, and null for what it
/// has not; locked tells whether the user has decided about it.
std::string notesAsJson(std::span<const JudgedNote> notes);

}  // namespace korvel
