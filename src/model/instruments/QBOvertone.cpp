// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/QBOvertone.h"

#include "model/instruments/QBSpectrum.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBOvertone::describe() {
  return platform::EntityBuilder<QBOvertone>("QBOvertone")
      .attribute<&QBOvertone::m_string>("string")
      .attribute<&QBOvertone::m_fret>("fret")
      .attribute<&QBOvertone::m_note>("note")
      .attribute<&QBOvertone::m_offset>("offset")
      .attribute<&QBOvertone::m_hits>("hits")
      .attribute<&QBOvertone::m_frequency>("frequency")
      .attribute<&QBOvertone::m_amp>("amp")
      .toOne<&QBOvertone::m_spectrum>("spectrum", "QBSpectrum", "overtones")
      .build();
}

QBSpectrum* QBOvertone::spectrum() const { return target(m_spectrum); }

void QBOvertone::setSpectrum(QBSpectrum* value) { relate(m_spectrum, value); }

void QBOvertone::forgetCaches() {
  if (QBSpectrum* owner = spectrum()) owner->forgetCaches();
}

bool QBOvertone::equals(int otherString, int otherFret) const {
  return string() == otherString && fret() == otherFret;
}

int QBOvertone::increaseHits() {
  setHits(hits() + 1);
  return hits();
}

}  // namespace korvel
