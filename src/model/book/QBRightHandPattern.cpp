// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBRightHandPattern.h"

#include "model/instruments/QBString.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBRightHandPattern::describe() {
  return platform::EntityBuilder<QBRightHandPattern>("QBRightHandPattern")
      .root()
      .attribute<&QBRightHandPattern::m_order>("order")
      .toMany<&QBRightHandPattern::m_strings>("strings", "QBString", "righthandpattern",
                                              platform::Loading::allOwners)
      .build();
}

platform::Members<QBString> QBRightHandPattern::strings() const { return members(m_strings); }

}  // namespace korvel
