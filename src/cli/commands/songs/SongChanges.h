// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `loop`, `clone`, `rename`, `move`, `merge` and `extract`: changes of songs and new songs of
/// others. Each saves, and prints the title of the song that it made or changed as ALBUM/TITLE.
/// Chords are named by their position, counted from 1.
void addSongChanges(Command& tool);

}  // namespace korvel::cli
