// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/MidiNote.h"

#include "model/songs/ToneOrder.h"
#include "music/OpenStrings.h"

namespace korvel {

int toMIDI(const QBTone& tone) { return addNotes(largeToneOf(tone), kMidiOfLargeTone0); }

}  // namespace korvel
