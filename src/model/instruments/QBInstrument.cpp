// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBInstrument.h"

#include <algorithm>

#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {
namespace {

constexpr int kHighest = 5;

int positionOf(const QBSpectrum& spectrum) {
  const QBString* string = spectrum.string();
  return string ? string->order() : 0;
}

}  // namespace

platform::EntityDescription QBInstrument::describe() {
  return platform::EntityBuilder<QBInstrument>("QBInstrument")
      .root()
      .attribute<&QBInstrument::m_name>("name")
      .attribute<&QBInstrument::m_active>("active")
      .attribute<&QBInstrument::m_editable>("editable")
      .attribute<&QBInstrument::m_calibrated>("calibrated")
      .attribute<&QBInstrument::m_detaillevel>("detaillevel")
      .attribute<&QBInstrument::m_volume>("volume")
      .toOne<&QBInstrument::m_tuning>("tuning", "QBTuning", "instruments")
      .toMany<&QBInstrument::m_spectrums>("spectrums", "QBSpectrum", "instrument",
                                          platform::Loading::allOwners)
      .build();
}

QBInstrument::QBInstrument() = default;

QBInstrument::~QBInstrument() = default;

QBTuning* QBInstrument::tuning() const { return target(m_tuning); }

void QBInstrument::setTuning(QBTuning* value) { relate(m_tuning, value); }

platform::Members<QBSpectrum> QBInstrument::spectrums() const { return members(m_spectrums); }

int QBInstrument::largeToneOfString(int string) const { return largeToneOfStringS(string); }

int QBInstrument::largeToneOfStringS(int string) {
  QBTuning* tuning = QBTabMgr::db().selectedTuning();
  return tuning ? tuning->largeToneOfString(string) : 0;
}

int QBInstrument::stringByLargeTone(int largeTone) const {
  for (int string = kHighest; string > 0; --string)
    if (largeToneOfString(string) > largeTone && largeToneOfString(string - 1) <= largeTone)
      return string - 1;
  return kHighest;
}

void QBInstrument::forgetCaches() { sortedSpectrums.reset(); }

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
  QBTabMgr::of(*this).deleteSpectrum(findSpectrumByString(position));
  sortedSpectrums->erase(sortedSpectrums->begin() + position);
}

QBSpectrum* QBInstrument::createSpectrum(QBString* string) {
  const int position = string->order();
  deleteSpectrumByString(position);
  QBSpectrum* spectrum = QBTabMgr::of(*this).createSpectrum(this, string);
  sortedSpectrums->emplace(sortedSpectrums->begin() + position, spectrum);
  return spectrum;
}

}  // namespace korvel
