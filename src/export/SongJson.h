// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

#include "fingering/Note.h"

namespace korvel {

class QBSong;

/// What was heard in one of several recordings.
struct NotesOfFile {
  std::string file;  ///< As it was named.
  std::vector<fingering::Note> notes;
};

/// The whole song as one JSON object: chords by position, tones in the hold's order, values that
/// were never set as null, amplitudes at full precision.
std::string songAsJson(QBSong& song);

/// The songs as a JSON array.
std::string songsAsJson(const std::vector<QBSong*>& songs);

/// The notes of a recording, {"notes": [{"onset", "offset", "midi", "string", "fret", "strength",
/// "probability"}]}: times in seconds, strings from 0 for the lowest, null for string and fret of a
/// note that the guitar has not.
std::string notesAsJson(std::span<const fingering::Note> notes);
/// A JSON array of such objects, each with the name of its file before the notes, "file".
std::string notesAsJson(const std::vector<NotesOfFile>& files);

}  // namespace korvel
