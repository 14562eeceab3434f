// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBToneOfHarmony.h"

#include "model/book/QBHarmony.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBToneOfHarmony::describe() {
  return platform::EntityBuilder<QBToneOfHarmony>("QBToneOfHarmony")
      .attribute<&QBToneOfHarmony::m_order>("order")
      .attribute<&QBToneOfHarmony::m_step>("step")
      .toOne<&QBToneOfHarmony::m_harmony>("harmony", "QBHarmony", "tones")
      .build();
}

QBHarmony* QBToneOfHarmony::harmony() const { return target(m_harmony); }

void QBToneOfHarmony::setHarmony(QBHarmony* value) { relate(m_harmony, value); }

void QBToneOfHarmony::forgetCaches() {
  if (QBHarmony* owner = harmony()) owner->forgetCaches();
}

}  // namespace korvel
