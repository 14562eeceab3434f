// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

// Songs with the chords of others, each in the album of the first with its tablature drawn:
// std::out_of_range when there are no chords to draw, and the new song stays then.

/// The chords of the song with the tones of the other song's chords, index by index. A clone of the
/// longer song takes them, also when that is the other one itself.
QBSong* mergeWithSong(QBSong& song, QBSong& other);

/// The chords of positions from..to, both included.
QBSong* extractPartOfSong(QBSong& song, int from, int to);

}  // namespace korvel
