// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

// Songs with the chords of others, each in the album of the first with its tablature drawn:
// std::out_of_range when there are no chords to draw, and the new song stays then.

/// The chords of the song with the tones of the other song's chords, index by index. A clone of the
/// longer song takes them, also when that is the other one itself. Of two songs on beats those come
/// together that are struck at the same place of their bars, and the bars and times are those of
/// the song with more chords.
QBSong* mergeWithSong(QBSong& song, QBSong& other);

/// The chords of positions from..to, both included. A part of a song on beats that begins within a
/// bar has a pick-up, and its last bar is full.
QBSong* extractPartOfSong(QBSong& song, int from, int to);

}  // namespace korvel
