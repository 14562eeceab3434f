// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "analysis/FoundTuning.h"
#include "chords/voices/Voice.h"
#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

/// A single line that was heard in a band, written on the beats of its reading.
struct HeardVoice {
  chords::Voice voice = chords::Voice::melody;
  /// Whether it was heard clearly enough to be worth it; otherwise it has no notes.
  bool isClear = false;
  /// By onset, none overlaps another, with strings and frets.
  std::vector<fingering::Note> notes;
  /// By how many semitones they lie above what was heard, to be on the guitar: whole octaves.
  int raised = 0;
  std::vector<rhythm::Event> events;  ///< Of the notes.
  std::vector<rhythm::Place> places;  ///< Of each note.
};

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
  std::vector<HeardVoice> voices{};  ///< Of a band: those that were asked for, clear or not.
  /// The tuning that it is clearly played in, when that is another one than was thought.
  std::optional<FoundTuning> otherTuning{};
};

}  // namespace korvel
