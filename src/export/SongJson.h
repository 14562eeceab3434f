// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

namespace korvel {

class QBSong;

namespace fingering {
struct Note;
}

/// The whole song as one JSON object: chords by position, tones in the hold's order, values that
/// were never set as null, amplitudes at full precision.
std::string songAsJson(QBSong& song);

/// The songs as a JSON array.
std::string songsAsJson(const std::vector<QBSong*>& songs);

/// The notes of a recording, {"notes": [{"onset", "offset", "midi", "string", "fret", "strength",
/// "probability"}]}: times in seconds, strings from 0 for the lowest, null for string and fret of a
/// note that the guitar has not.
std::string notesAsJson(std::span<const fingering::Note> notes);

}  // namespace korvel
