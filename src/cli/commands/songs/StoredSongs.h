// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `list`: every song as ALBUM/TITLE, one a line.
void addList(Command& tool);

/// `show`, `dump` and `delete`: the tablature of a song, the song as JSON, and its end.
void addStoredSongs(Command& tool);

}  // namespace korvel::cli
