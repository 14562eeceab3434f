// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/ToneToggles.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "workflow/editing/SongEditor.h"

namespace korvel {
namespace {

const QBTone* toneAt(QBSong& song, int chord, int string) {
  const QBHold* hold = song.allChords().at(static_cast<std::size_t>(chord))->hold();
  return hold ? hold->findToneByString(string) : nullptr;
}

}  // namespace

void toggleFret(SongEditor& editor, int chord, int string, int fret) {
  const QBTone* tone = toneAt(editor.song(), chord, string);
  if (tone && tone->fret() == fret)
    editor.removeTone(chord, string);
  else
    editor.setFret(chord, string, fret);
}

void toggleActive(SongEditor& editor, int chord, int string) {
  if (const QBTone* tone = toneAt(editor.song(), chord, string))
    editor.setActive(chord, string, !tone->isActive());
}

}  // namespace korvel
