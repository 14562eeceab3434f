// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `clone`: copies a song, saves, and prints the title of the copy as ALBUM/TITLE.
void addCloneSong(Command& tool);

}  // namespace korvel::cli
