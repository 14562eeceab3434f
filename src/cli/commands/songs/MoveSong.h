// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `move`: moves a song to an album, which is made when missing, saves, and prints the title of the
/// song as ALBUM/TITLE.
void addMoveSong(Command& tool);

}  // namespace korvel::cli
