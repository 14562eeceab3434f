// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/roll/RollNotes.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel::ui {

RollNotes RollNotes::of(QBSong& song, const ToneRoll& roll, const RecordedTime&) {
  RollNotes notes;
  const auto& chords = song.allChords();
  for (const ToneRoll::Tone& tone : roll.tones())
    notes.signs.push_back({.isLocked = chords[static_cast<std::size_t>(tone.chord)]->isEdited()});
  return notes;
}

}  // namespace korvel::ui
