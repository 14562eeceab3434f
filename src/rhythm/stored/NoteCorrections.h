// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "rhythm/stored/HeardBytes.h"

namespace korvel::rhythm {

/// What is to become of a heard note, other than the detection took it.
struct NoteVerdict {
  /// Which note: its onset in samples at 44100 a second, and its pitch.
  std::int64_t onset = 0;
  int pitch = 0;
  bool isIn = false;      ///< The song has it.
  bool isLocked = false;  ///< The user said so, of this very note.
  int string = -1;        ///< Where it is played, of one that came in; -1 as it was heard.
  int fret = -1;

  bool operator==(const NoteVerdict&) const = default;
};

/// A part of a recording that was heard again with other settings: its notes stand for those that
/// were heard there before.
struct HeardAgain {
  double from = 0;  ///< Seconds.
  double to = 0;
  HeardNotes notes;
};

/// What a song has otherwise than its recording was heard.
struct NoteCorrections {
  std::vector<NoteVerdict> verdicts;  ///< By onset, equal onsets by pitch; one for each note.
  std::vector<HeardAgain> again;      ///< By time; none overlaps another.

  bool empty() const { return verdicts.empty() && again.empty(); }
};

std::int64_t sampleOfOnset(const fingering::Note& note);

Bytes bytesOf(const NoteCorrections& corrections);
/// None for bytes of a later version, and for those that are damaged.
std::optional<NoteCorrections> noteCorrections(std::span<const std::byte> bytes);

/// The notes with those of all parts that were heard again in their place.
HeardNotes withHeardAgain(HeardNotes notes, const std::vector<HeardAgain>& again);

/// The verdict about a note; none if there is none.
const NoteVerdict* verdictOn(const NoteCorrections& corrections, const fingering::Note& note);

/// The notes that a song has by its corrections, by onset.
std::vector<fingering::Note> notesBy(const HeardNotes& heard, const NoteCorrections& corrections);

}  // namespace korvel::rhythm
