// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

// New songs made of songs that a user has. Each is an undoable action and saves the store; it
// throws EditRefused when the store cannot be written and StoreError when it cannot be saved, and
// nothing has changed then. The songs need chords: std::out_of_range without.

/// A copy in the same album, with the song's durations and bars, which becomes the active song.
/// Logged.
QBSong& cloneSong(QBSong& song);

/// The tones of both, chord by chord, on beats place by place, as by `mergeWithSong`.
QBSong& mergeSongs(QBSong& song, QBSong& other);

/// The chords of positions from..to, both included.
QBSong& extractPart(QBSong& song, int from, int to);

}  // namespace korvel
