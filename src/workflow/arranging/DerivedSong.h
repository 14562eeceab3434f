// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "workflow/arranging/SongCommands.h"

namespace korvel {

/// The new song that a command derives from the song (`SongCommand::make`), under the title that is
/// free for it. For players, and on beats in either manner, it keeps the song's times. For players
/// EditRefused is thrown when nothing would sound in it; what was made by then stays, for the
/// caller to take back.
QBSong* derived(QBSong& song, const SongCommand& command, Manner manner);

/// The same of the command of that name, which derives a song, by the letter of its filter.
QBSong* derivedByLetter(QBSong& song, std::string_view command);

/// EditRefused when nothing sounds in the song, so that a command would make nothing of it.
void requireSound(const QBSong& song, const SongCommand& command);

/// Gives a song with as many chords as its source the durations and the bars of that, unless it has
/// bars of its own. Chords are matched in their order, tones by their place. A song that was
/// derived from one on beats gets them whatever chords it has (`bars/KeptBeats.h`).
void keepTimes(QBSong& source, QBSong& made);

/// Gives a song what is sung to its source, and who that is by: in one of slices, which has to have
/// as many chords, at the same chords, whether these are in bars or not.
void keepWords(QBSong& source, QBSong& made);

}  // namespace korvel
