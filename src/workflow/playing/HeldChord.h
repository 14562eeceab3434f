// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

/// What a hand holds while a chord is played, as an index in the song's `allChords` like that: the
/// chord itself, or the one before it that still rings where a song on beats strikes nothing.
int chordHeldAt(QBSong& song, int chord);

}  // namespace korvel
