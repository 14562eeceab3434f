// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `lyrics`: prints the words of a song, each line with its bar, or takes them from a file; then it
/// saves, and prints the title of the song as ALBUM/TITLE.
void addLyricsOfSong(Command& tool);

}  // namespace korvel::cli
