// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under the title that is given, with its tablature
// drawn. std::out_of_range when there are no chords to draw, and the new song stays then.

/// Non-chord tones, bass movement and right hand mended in turn; writes the three stages as text
/// files into the tablature folder.
QBSong* trimToPlayable(QBSong& song, const std::string& title);
/// The same with the files in a new folder beside the user's exports, named after the new song; the
/// log has their paths. Nothing is written where nothing would sound. platform::FileError, and then
/// there is no file, but the songs of the stages stay.
QBSong* trimmedForPlayers(QBSong& song, const std::string& title);

}  // namespace korvel
