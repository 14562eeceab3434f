// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/page/PageSource.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "music/Pitch.h"

namespace korvel {

const PageSource::Chord* chordAtIndex(const PageSource& source, int index) {
  const auto after = std::ranges::upper_bound(source.chords, index, {}, &PageSource::Chord::index);
  return after == source.chords.begin() ? nullptr : &*std::prev(after);
}

bool isCalledAlike(const PageSource::Chord& chord, const PageSource::Chord& other) {
  return std::tie(chord.root, chord.type, chord.bass) ==
         std::tie(other.root, other.type, other.bass);
}

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
