// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `loop`: sets the playback loop of a song between two chords, named by their positions from 1, or
/// takes it away. Saves, and prints the title of the song as ALBUM/TITLE.
void addLoopSong(Command& tool);

}  // namespace korvel::cli
