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
  rhythm::Rhythm rhythm;  ///< Of the notes.
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
/// "beatsPerBar", "compound", "swing", "key", "chords": [[start, end, "A:min7"]],
/// "chordProbabilities", "readingProbability", "free", "others": [{"tempo", "beatsPerBar",
/// "compound", "feel", "readingProbability"}]}: times in seconds, strings from 0 for the lowest,
/// null for string and fret of a note that the guitar has not; ticks are twelfths of a beat, from
/// the first bar line; a chord is maj, min, 7, min7 or maj7, or "N" where there is none, which has
/// no probability. Others are what the rhythm may be as well, and free is one that no reading fits.
/// The rhythm is of these notes, and its chords' probabilities are told.
std::string notesAsJson(std::span<const fingering::Note> notes, const rhythm::Rhythm& rhythm);
/// A JSON array of such objects, each with the name of its file before the notes, "file".
std::string notesAsJson(const std::vector<NotesOfFile>& files);

}  // namespace korvel
