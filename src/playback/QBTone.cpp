// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBTone.h"

#include "model/instruments/QBInstrument.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// Large tones count from the C of 65.41 Hz.
constexpr int kMidiNoteOfLargeTone0 = 36;

}  // namespace

int QBTone::toMIDI() const {
  const int open = QBInstrument::largeToneOfStringS(string());
  return addNotes(addNotes(fret(), open), kMidiNoteOfLargeTone0);
}

}  // namespace korvel
