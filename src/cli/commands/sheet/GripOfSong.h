// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `grip`: holds a chord of a song in another shape, wherever it is called so or in a passage; then
/// it saves, and prints the title of the song as ALBUM/TITLE.
void addGripOfSong(Command& tool);

}  // namespace korvel::cli
