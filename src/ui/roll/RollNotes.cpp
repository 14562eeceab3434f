// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollNotes.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/editing/doubts/SongNotes.h"

namespace korvel::ui {
namespace {

RollNotes::Sign signOf(const ToneRoll::Tone& tone, const SongNotes& notes, bool isEdited) {
  const auto note = notes.noteOf(tone.chord, tone.string);
  if (!note) return {.isLocked = isEdited};
  const SongNote& heard = notes[*note];
  return {static_cast<int>(*note), heard.note.probability, heard.isLocked || isEdited};
}

/// Out of the song's own notes, which are in the roll as tones.
void addCandidates(const SongNotes& notes, const RecordedTime& time,
                   std::vector<RollNotes::Candidate>& candidates) {
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const SongNote& heard = notes[i];
    if (heard.isIn || heard.chord < 0) continue;
    const double from = time.stepOf(heard.note.onset);
    candidates.push_back({static_cast<int>(i), heard.chord, from,
                          time.stepOf(heard.note.end) - from, heard.note.pitch,
                          heard.note.probability, heard.isLocked});
  }
  std::ranges::stable_sort(candidates, {}, &RollNotes::Candidate::from);
}

}  // namespace

RollNotes RollNotes::of(QBSong& song, const SongNotes& notes, const ToneRoll& roll,
                        const RecordedTime& time) {
  RollNotes found;
  const auto& chords = song.allChords();
  for (const ToneRoll::Tone& tone : roll.tones())
    found.signs.push_back(
        signOf(tone, notes, chords[static_cast<std::size_t>(tone.chord)]->isEdited()));
  if (time.isKnown()) addCandidates(notes, time, found.candidates);
  return found;
}

}  // namespace korvel::ui
