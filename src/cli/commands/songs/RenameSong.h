// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `rename`: gives a song another title, saves, and prints the title of the song as ALBUM/TITLE.
void addRenameSong(Command& tool);

}  // namespace korvel::cli
