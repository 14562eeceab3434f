// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/drawn/DrawnInSlices.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "workflow/editing/ChangedTones.h"
#include "workflow/editing/MeasureLayout.h"

namespace korvel {

DrawnInSlices::DrawnInSlices(QBTabMgr& db, QBSong& song) : DrawnChords(db, song) {
  int index = 0;
  for (const auto& chord : song.allChords()) m_indexes[chord] = index++;
  m_firstChanged = index;
}

/// A note begins with the slice in which it is drawn.
int DrawnInSlices::nearestBegin(double step, int) const {
  return static_cast<int>(std::floor(step));
}

int DrawnInSlices::stepsOf(const ToneIndex& place) const {
  return chordOf(place).hold()->findToneByString(place.string)->soundingSteps();
}

QBChord* DrawnInSlices::chordAt(int begin) {
  const auto& chords = song().allChords();
  if (begin < 0 || begin >= std::ssize(chords)) return nullptr;
  return chords[static_cast<std::size_t>(begin)].get();
}

void DrawnInSlices::came(QBChord& chord, int string, int steps) {
  chord.hold()->findToneByString(string)->setDuration(std::clamp(steps, 1, kLongestDuration));
}

void DrawnInSlices::lengthen(const ToneIndex& place, int steps, int) {
  QBChord& chord = chordOf(place);
  came(chord, place.string, stepsOf(place) + steps);
  changed(chord);
}

void DrawnInSlices::changed(QBChord& chord) {
  readAnew(chord);
  m_firstChanged = std::min(m_firstChanged, m_indexes.at(&chord));
}

void DrawnInSlices::finish() { layIntoMeasures(db(), song(), m_firstChanged); }

}  // namespace korvel
