// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBHarmony.h"

#include "model/book/QBToneOfHarmony.h"
#include "model/songs/QBChord.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBHarmony::describe() {
  return platform::EntityBuilder<QBHarmony>("QBHarmony")
      .root()
      .attribute<&QBHarmony::m_type>("type")
      .attribute<&QBHarmony::m_order>("order")
      .toMany<&QBHarmony::m_tones>("tones", "QBToneOfHarmony", "harmony",
                                   platform::Loading::allOwners)
      .toMany<&QBHarmony::m_chords>("chords", "QBChord", "harmony")
      .build();
}

QBHarmony::QBHarmony() = default;

QBHarmony::~QBHarmony() = default;

platform::Members<QBToneOfHarmony> QBHarmony::tones() const { return members(m_tones); }

platform::Members<QBChord> QBHarmony::chords() const { return members(m_chords); }

void QBHarmony::forgetCaches() {
  m_sortedTones.reset();
  m_intervals.reset();
}

}  // namespace korvel
