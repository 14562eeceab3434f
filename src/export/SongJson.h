// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

class QBSong;

/// What was heard in one of several recordings.
struct NotesOfFile {
  std::string file;  ///< As it was named.
  std::vector<fingering::Note> notes;
  rhythm::Reading reading;  ///< Of the notes.
};

/// The whole song as one JSON object: chords by position, tones in the hold's order, values that
/// were never set as null, amplitudes at full precision. One on beats also has "tempo" in beats a
/// minute, "swing" (whether it is), "key" ("E:major" or null), "tick" and "ticks" of each chord and
/// "ticks" of each tone: twelfths of a beat, from the first bar line.
std::string songAsJson(QBSong& song);

/// The songs as a JSON array.
std::string songsAsJson(const std::vector<QBSong*>& songs);

/// The notes of a recording and how their rhythm was read, {"notes": [{"onset", "offset", "midi",
/// "string", "fret", "strength", "probability", "tick", "ticks"}], "beats", "downbeats", "tempo",
/// "beatsPerBar", "compound", "swing", "key", "chords": [[start, end, "A:min7"]]}: times in
/// seconds, strings from 0 for the lowest, null for string and fret of a note that the guitar has
/// not; ticks are twelfths of a beat, from the first bar line; a chord is maj, min, 7, min7 or
/// maj7, or "N" where there is none. The reading is of these notes.
std::string notesAsJson(std::span<const fingering::Note> notes, const rhythm::Reading& reading);
/// A JSON array of such objects, each with the name of its file before the notes, "file".
std::string notesAsJson(const std::vector<NotesOfFile>& files);

}  // namespace korvel
