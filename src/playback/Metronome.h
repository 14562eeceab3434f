// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/midi/MusicTrack.h"

namespace korvel {

class QBSong;

/// Adds clicks of General MIDI's percussion to the chords of positions from..to, which follow each
/// other by a step, the first after one. A song in measures clicks where a chord begins on a beat
/// of its measure, with another, louder sound on the first; chords in no measure have none. Any
/// other song clicks at every fourth chord from the first of the range on, all alike.
void addClicks(QBSong& song, int from, int to, platform::MusicTrack& track);

/// The same clicks before the first chord of positions from..: a bar of the measure that the chord
/// is in, or four where it is in none, as fast as they go on. Answers how many beats of the track
/// before its beginning they begin.
double addCountIn(QBSong& song, int from, platform::MusicTrack& track);

}  // namespace korvel
