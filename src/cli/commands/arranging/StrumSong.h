// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `strum`: makes a song of a stored one's chords, strummed in a pattern, and prints its title as
/// ALBUM/TITLE; or lists the patterns.
void addStrumSong(Command& tool);

}  // namespace korvel::cli
