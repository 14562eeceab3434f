// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBSpectrum.h"

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBString.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBSpectrum::describe() {
  return platform::EntityBuilder<QBSpectrum>("QBSpectrum")
      .attribute<&QBSpectrum::m_calibrated>("calibrated")
      .toOne<&QBSpectrum::m_instrument>("instrument", "QBInstrument", "spectrums")
      .toOne<&QBSpectrum::m_string>("string", "QBString")
      .toMany<&QBSpectrum::m_overtones>("overtones", "QBOvertone", "spectrum",
                                        platform::Loading::allOwners)
      .build();
}

QBSpectrum::QBSpectrum() = default;

QBSpectrum::~QBSpectrum() = default;

QBInstrument* QBSpectrum::instrument() const { return target(m_instrument); }

void QBSpectrum::setInstrument(QBInstrument* value) { relate(m_instrument, value); }

QBString* QBSpectrum::string() const { return target(m_string); }

void QBSpectrum::setString(QBString* value) { relate(m_string, value); }

platform::Members<QBOvertone> QBSpectrum::overtones() const { return members(m_overtones); }

void QBSpectrum::forgetCaches() {
  m_sorted.reset();
  if (QBInstrument* owner = instrument()) owner->forgetCaches();
}

}  // namespace korvel
