// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBHold.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBHold::describe() {
  return platform::EntityBuilder<QBHold>("QBHold")
      .toOne<&QBHold::m_chord>("chord", "QBChord", "hold")
      .toMany<&QBHold::m_tones>("tones", "QBTone", "hold", platform::Loading::ownerOnly, true)
      .build();
}

QBHold::QBHold() = default;

QBHold::~QBHold() = default;

QBChord* QBHold::chord() const { return target(m_chord); }

void QBHold::setChord(QBChord* value) { relate(m_chord, value); }

platform::Members<QBTone> QBHold::tones() const { return members(m_tones); }

void QBHold::forgetCaches() {
  m_sortedTones.reset();
  m_isBarre = Barre::unknown;
  if (QBChord* owner = chord()) owner->forgetCaches();
}

}  // namespace korvel
