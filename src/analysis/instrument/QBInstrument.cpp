// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBInstrument.h"

#include <algorithm>

#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

int positionOf(const QBSpectrum& spectrum) {
  const QBString* string = spectrum.string();
  return string ? string->order() : 0;
}

}  // namespace

const std::vector<platform::Ref<QBSpectrum>>& QBInstrument::readAllSpectrums() {
  if (!sortedSpectrums) {
    sortedSpectrums = spectrums().snapshot();
    std::ranges::stable_sort(*sortedSpectrums, {},
                             [](const auto& spectrum) { return positionOf(*spectrum); });
  }
  return *sortedSpectrums;
}

QBSpectrum* QBInstrument::findSpectrumByString(int position) {
  return readAllSpectrums().at(static_cast<std::size_t>(position));
}

void QBInstrument::deleteSpectrumByString(int position) {
  QBTabMgr::db().deleteSpectrum(findSpectrumByString(position));
  sortedSpectrums->erase(sortedSpectrums->begin() + position);
}

QBSpectrum* QBInstrument::createSpectrum(QBString* string) {
  const int position = string->order();
  deleteSpectrumByString(position);
  QBSpectrum* spectrum = QBTabMgr::db().createSpectrum(this, string);
  sortedSpectrums->emplace(sortedSpectrums->begin() + position, spectrum);
  return spectrum;
}

bool QBInstrument::filterString(int position, int fret, const QBChord& chord) {
  return filter(*findSpectrumByString(position), fret, chord);
}

// Sums and product are in single precision: a tone at the edge passes by its rounding.
bool QBInstrument::filter(QBSpectrum& spectrum, int fret, const QBChord& chord) const {
  const int played = addNotes(largeToneOfStringS(positionOf(spectrum)), fret);
  const QBHold* hold = chord.hold();
  float total = 0.0F;
  float found = 0.0F;
  for (const auto& [position, overtone] : spectrum.readSortedTones()) {
    const auto hits = static_cast<float>(overtone->hits());
    total += hits;
    if (hold && hold->findLargeNote(addNotes(played, overtone->offset()))) found += hits;
  }
  return found >= detaillevel() * total;
}

}  // namespace korvel
