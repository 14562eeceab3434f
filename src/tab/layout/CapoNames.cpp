// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/layout/CapoNames.h"

#include <algorithm>

#include "arrange/harmony/WrittenName.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

/// So many half tones below a note, as the key of the shapes writes it.
std::string rootOfShape(int note, int capo, const QBSong* song) {
  const int root = pitchClass(note - capo);
  if (!song || !song->hasKey()) return QBHarmony::noteAsString(root).value_or("");
  const int mode = song->key() >= kNotesPerOctave ? kNotesPerOctave : 0;
  return std::string(nameInKey(root, pitchClass(song->key() - capo) + mode));
}

}  // namespace

int capoOfTablature(QBSong& song) {
  const int capo = capoOf(song);
  if (capo <= 0) return 0;
  bool sounds = false;
  for (const auto& chord : song.allChords())
    for (const auto& tone : tonesOf(*chord)) {
      if (!tone->isActive()) continue;
      if (tone->fret() < capo) return 0;
      sounds = true;
    }
  return sounds ? capo : 0;
}

std::string CapoName::text() const {
  return shape.empty() ? sounding : shape + " (" + sounding + ')';
}

CapoName capoNameOf(const QBChord& chord, int capo) {
  CapoName name{writtenName(chord), {}};
  const bool isNote = chord.hasBaseTone() && chord.baseTone() == pitchClass(chord.baseTone());
  if (capo > 0 && chord.harmony() && isNote)
    name.shape = rootOfShape(chord.baseTone(), capo, chord.song()) + chord.harmony()->type();
  return name;
}

}  // namespace korvel
