// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

/// Gives a song without measures that was derived from one on beats the bars of that, and its
/// chords and tones their places and lengths; tempo, swing, key and recording, too, unless it is on
/// beats already.
///
/// As many chords as the source has are matched in their order; else by the moment at which they
/// were struck. Where a chord is missing, the one before lasts until the next, and its tones with
/// it; rests stay. Several chords in the place of one share its length. A tone that was made anew
/// lasts as long as the source's of that place or pitch, or as the loudest one there.
void keepBeats(QBSong& source, QBSong& made);

}  // namespace korvel
