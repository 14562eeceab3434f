// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tab/layout/SongBars.h"

namespace korvel {

class QBSong;
class QBTabMatrix;

/// Draws a bar of a song on beats as systems of its own, with the beat ruler below: two columns for
/// each sixteenth, from the beat on that a pick-up begins with. Rests have their room and an "r", a
/// stem without frets lengthens what is before, and "3" stands beside those of a triplet. Marks the
/// loop of `loopOf` unless that is null.
void addBar(const SongBars::Bar& bar, QBSong& song, const QBSong* loopOf, QBTabMatrix& matrix);

}  // namespace korvel
