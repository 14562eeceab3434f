// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/MidiNote.h"

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBTone.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// Large tones count from the C of 65.41 Hz.
constexpr int kMidiNoteOfLargeTone0 = 36;

}  // namespace

int toMIDI(const QBTone& tone) {
  const int open = QBInstrument::largeToneOfStringS(tone.string());
  return addNotes(addNotes(tone.fret(), open), kMidiNoteOfLargeTone0);
}

}  // namespace korvel
