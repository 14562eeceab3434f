// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "arrange/hands/HandShapes.h"
#include "tab/layout/LoopRange.h"

namespace korvel {

class QBSong;

/// Holds a chord of a song in that shape, wherever its page calls it so within some chords, as one
/// undoable action. chord: the index in `allChords` of one that is called so, shape: counted from
/// the capo of the page. The strokes stay: their times, how loud they are, and which part of the
/// grip they strike. Answers in how many passages, leaving alone those that are held in the shape
/// already and those whose tones are no grip, such as melodies.
///
/// Throws EditRefused for a shape that sounds other notes, where no passage is a grip, and when the
/// song cannot be edited.
int holdChord(QBSong& song, int chord, const ChordShape& shape, ChordSpan within);

}  // namespace korvel
