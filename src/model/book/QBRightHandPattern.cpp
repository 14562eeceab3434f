// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/book/QBRightHandPattern.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
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

bool QBRightHandPattern::matches(const QBChord& chord) const {
  const QBHold* hold = chord.hold();
  for (const QBString* row : strings())
    if (!hold || !hold->findToneByString(row->order())) return false;
  return true;
}

int QBRightHandPattern::weight() const {
  // Stored numbers may be any.
  constexpr std::int64_t kMost = std::numeric_limits<int>::max();
  const std::int64_t weight =
      (static_cast<std::int64_t>(order()) + static_cast<std::int64_t>(strings().size())) * 4;
  return static_cast<int>(std::clamp(weight, -kMost, kMost));
}

bool QBRightHandPattern::isPlayable(const QBRightHandPattern&) const { return true; }

}  // namespace korvel
