// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBSong;

// Small changes of a song as a whole, each an undoable action, saved and with its tablature drawn
// anew.

/// The nearer end of the playback loop goes to the chord of that index in `allChords`.
void moveLoopEnd(QBSong& song, int chord);
/// Both chords are the song's, the first one before the last.
void setLoop(QBSong& song, QBChord& first, QBChord& last);
void clearLoop(QBSong& song);

}  // namespace korvel
