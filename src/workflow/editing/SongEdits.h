// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;
class QBSong;

// Small changes of a song as a whole, saved and with its tablature drawn anew. Those of a loop that
// follow one another are one undoable action, so that a search for the right passage does not stand
// between an edit and its undo. They throw StoreError when they cannot be saved; nothing has
// changed then.

/// Whether a loop that is changed ends where it is told, or takes in all of the bars there. A chord
/// in no bar is one for itself.
enum class LoopEnds { atChords, atBars };

/// The nearer end of the playback loop goes to the chord of that index in `allChords`.
void moveLoopEnd(QBSong& song, int chord, LoopEnds ends = LoopEnds::atChords);
/// One end of the loop goes to that chord, and the other one, when it would be on the wrong side or
/// is not set, to the song's.
void beginLoop(QBSong& song, int chord, LoopEnds ends = LoopEnds::atChords);
void endLoop(QBSong& song, int chord, LoopEnds ends = LoopEnds::atChords);
/// Both chords are the song's, the first one before the last.
void setLoop(QBSong& song, QBChord& first, QBChord& last, LoopEnds ends = LoopEnds::atChords);
/// By their indexes in `allChords`.
void setLoop(QBSong& song, int first, int last, LoopEnds ends = LoopEnds::atChords);
void clearLoop(QBSong& song);

}  // namespace korvel
