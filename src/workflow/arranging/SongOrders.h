// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/arranging/SongCommands.h"

namespace korvel {

class QBSongMenu;

// Gives a song a command as a user means it: in the tuning that the song was made in, and saved by
// the time its sentence is logged, whatever the command itself does. Throws EditRefused for a song
// without chords, of which nothing can be derived, and where nothing would be left to play; there
// is no new song then, and nothing to undo.

/// Answers whether all went well; what did not was reported through the session.
bool orderOf(QBSongNode& node, const SongCommand& command, Manner manner = Manner::forPlayers);
/// To the song that is selected in the tree; without one the log says so.
void orderByMenu(QBSongMenu& menu, const SongCommand& command);

}  // namespace korvel
