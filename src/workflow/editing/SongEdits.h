// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBSong;

// Small changes of a song as a whole, saved and with its tablature drawn anew. Those of a loop that
// follow one another are one undoable action, so that a search for the right passage does not stand
// between an edit and its undo. They throw StoreError when they cannot be saved; nothing has
// changed then.

/// The nearer end of the playback loop goes to the chord of that index in `allChords`.
void moveLoopEnd(QBSong& song, int chord);
/// One end of the loop goes to that chord, and the other one, when it would be on the wrong side or
/// is not set, to the song's.
void beginLoop(QBSong& song, int chord);
void endLoop(QBSong& song, int chord);
/// Both chords are the song's, the first one before the last.
void setLoop(QBSong& song, QBChord& first, QBChord& last);
/// By their indexes in `allChords`.
void setLoop(QBSong& song, int first, int last);
void clearLoop(QBSong& song);

}  // namespace korvel
