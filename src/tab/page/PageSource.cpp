// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageSource.h"

#include "music/Pitch.h"

namespace korvel {

PageSource::Chord movedChord(PageSource::Chord chord, int halfTones) {
  if (chord.root < 0) return chord;
  chord.root = pitchClass(chord.root + halfTones);
  if (chord.bass >= 0) chord.bass = pitchClass(chord.bass + halfTones);
  unsigned moved = 0;
  for (int note = 0; note < kNotesPerOctave; ++note)
    if ((chord.pitchClasses >> note & 1U) != 0) moved |= 1U << pitchClass(note + halfTones);
  chord.pitchClasses = moved;
  chord.shape.reset();
  return chord;
}

}  // namespace korvel
