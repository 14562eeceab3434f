// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "workflow/arranging/SongCommands.h"

namespace korvel {

/// The new song that a command derives from the song (`SongCommand::make`), under the title that is
/// free for it. For players it keeps the song's times, and EditRefused is thrown when nothing would
/// sound in it; what was made by then stays, for the caller to take back.
QBSong* derived(QBSong& song, const SongCommand& command, Manner manner);

/// EditRefused when nothing sounds in the song, so that a command would make nothing of it.
void requireSound(const QBSong& song, const SongCommand& command);

/// Gives a song with as many chords as its source the durations and the bars of that, unless it has
/// bars of its own. Chords are matched in their order, tones by their place.
void keepTimes(QBSong& source, QBSong& made);

}  // namespace korvel
