// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBTone.h"

#include <algorithm>

#include "model/songs/QBHold.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/ChordStep.h"
#include "music/Pitch.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBTone::describe() {
  return platform::EntityBuilder<QBTone>("QBTone")
      .attribute<&QBTone::m_string>("string")
      .attribute<&QBTone::m_fret>("fret")
      .attribute<&QBTone::m_note>("note")
      .attribute<&QBTone::m_amp>("amp")
      .attribute<&QBTone::m_duration>("duration")
      .attribute<&QBTone::m_ticks>("ticks")
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

QBTone* QBTone::clone(QBHold* owner) const {
  QBTone* copy = QBTabMgr::of(*this).createTone(owner, string(), fret(), 0, amp());
  copy->setDuration(duration());
  if (hasTicks()) copy->setTicks(ticks());
  if (hasGroup()) copy->setGroup(group());
  return copy;
}

int QBTone::soundingSteps() const {
  return duration() == 0 ? kUntoldDuration : std::clamp(duration(), 1, kLongestDuration);
}

bool QBTone::isNote(int note) const { return pitchClass(largeToneOf(*this)) == note; }

bool QBTone::isLargeNote(int note) const { return largeToneOf(*this) == note; }

bool QBTone::equals(const QBTone& other) const {
  return fret() == other.fret() && string() == other.string();
}

std::string QBTone::toString() const { return toStringClean() + "\r\n"; }

std::string QBTone::toStringClean() const { return std::to_string(fret()); }

}  // namespace korvel
