// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/instrument/ToneFilter.h"

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "music/Pitch.h"

namespace korvel {

// Sums and product are in single precision: a tone at the edge passes by its rounding.
bool filter(const QBInstrument& instrument, QBSpectrum& spectrum, int fret, const QBChord& chord) {
  const int string = spectrum.string() ? spectrum.string()->order() : 0;
  const int played = openStringsOf(chord).note(string, fret);
  const QBHold* hold = chord.hold();
  float total = 0.0F;
  float found = 0.0F;
  for (const auto& [position, overtone] : spectrum.readSortedTones()) {
    const auto hits = static_cast<float>(overtone->hits());
    total += hits;
    if (hold && hold->findLargeNote(addNotes(played, overtone->offset()))) found += hits;
  }
  return found >= instrument.detaillevel() * total;
}

bool filterString(QBInstrument& instrument, int string, int fret, const QBChord& chord) {
  return filter(instrument, *instrument.findSpectrumByString(string), fret, chord);
}

bool filterLowerE(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 0, fret, chord);
}

bool filterA(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 1, fret, chord);
}

bool filterD(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 2, fret, chord);
}

bool filterG(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 3, fret, chord);
}

bool filterB(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 4, fret, chord);
}

bool filterUpperE(QBInstrument& instrument, int fret, const QBChord& chord) {
  return filterString(instrument, 5, fret, chord);
}

}  // namespace korvel
