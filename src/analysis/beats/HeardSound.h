// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

/// All that was heard in a recording.
struct HeardSound {
  std::vector<fingering::Note> notes;     ///< By onset, with strings and frets.
  std::vector<fingering::Note> doubtful;  ///< What may have been notes too, by onset.
  rhythm::Rhythm rhythm;                  ///< Of the notes.
  rhythm::Wishes wishes;                  ///< By which the rhythm was read.
  double seconds = 0;                     ///< Length of the recording, as far as it was read.
  double tuningOffset = 0;                ///< How far its A lies above 440 Hz, in cents.
  int capo = 0;
  /// A band plays: its notes are those of grips for its chords.
  bool isBand = false;
};

}  // namespace korvel
