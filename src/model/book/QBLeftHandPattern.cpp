// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBLeftHandPattern.h"

#include "model/instruments/QBString.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBLeftHandPattern::describe() {
  return platform::EntityBuilder<QBLeftHandPattern>("QBLeftHandPattern")
      .root()
      .attribute<&QBLeftHandPattern::m_order>("order")
      .toMany<&QBLeftHandPattern::m_strings>("strings", "QBString", "lefthandpattern",
                                             platform::Loading::allOwners)
      .build();
}

platform::Members<QBString> QBLeftHandPattern::strings() const { return members(m_strings); }

}  // namespace korvel
