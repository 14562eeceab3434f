// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `finger`: says where the hand is in a passage of a song, or moves what it plays to other strings
/// (`SongFingers`); saves, and prints the title of the song as ALBUM/TITLE. Without anything said
/// prints the positions of the hand.
void addFingerSong(Command& tool);

}  // namespace korvel::cli
