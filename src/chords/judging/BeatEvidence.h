// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/BandSound.h"

namespace korvel::chords {

/// What notes say of a beat.
struct NoteEvidence {
  Chroma weights{};  ///< Of each pitch class.
  int bass = -1;     ///< Pitch class of the lowest note, if it is low.
};

/// What is heard in a beat.
struct BeatEvidence {
  Chroma treble{};
  Chroma bass{};
  NoteEvidence notes;
  double seconds = 0;
  bool onBarLine = false;
  bool isSilent = false;
  /// Which share of the power is drums, in this beat and in the whole recording alike, 0..1.
  float percussive = 0;
};

/// What sounds from each of these times to the next one; `times` ascend.
std::vector<BeatEvidence> evidenceOf(const BandSound& sound, std::span<const double> times);

}  // namespace korvel::chords
