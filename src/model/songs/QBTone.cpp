// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBTone.h"

#include "model/songs/QBHold.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBTone::describe() {
  return platform::EntityBuilder<QBTone>("QBTone")
      .attribute<&QBTone::m_string>("string")
      .attribute<&QBTone::m_fret>("fret")
      .attribute<&QBTone::m_note>("note")
      .attribute<&QBTone::m_amp>("amp")
      .attribute<&QBTone::m_duration>("duration")
      .attribute<&QBTone::m_active>("active")
      .attribute<&QBTone::m_group>("group")
      .attribute<&QBTone::m_name>("name")
      .toOne<&QBTone::m_hold>("hold", "QBHold", "tones")
      .build();
}

QBHold* QBTone::hold() const { return target(m_hold); }

void QBTone::setHold(QBHold* value) { relate(m_hold, value); }

void QBTone::forgetCaches() {
  if (QBHold* owner = hold()) owner->forgetCaches();
}

}  // namespace korvel
