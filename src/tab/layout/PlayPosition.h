// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace korvel {

class QBSong;

/// Index of the chord that plays at a fraction of the song's loop, or of the song when it has none,
/// as the player reports it: after the first of n chords 1/n. None before the first chord.
std::optional<int> chordAtPlayPosition(QBSong& song, float fraction);

}  // namespace korvel
