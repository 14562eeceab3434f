// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/QBTone.h"

#include "model/Pitch.h"
#include "model/QBHarmony.h"
#include "model/QBInstrument.h"
#include "model/QBTabMgr.h"

namespace korvel {

QBTone* QBTone::clone(QBHold* owner) const {
  QBTone* copy = QBTabMgr::db().createTone(owner, string(), fret(), 0, amp());
  copy->setDuration(duration());
  if (hasGroup()) copy->setGroup(group());
  return copy;
}

bool QBTone::isNote(int note) const {
  return pitchClass(QBHarmony::toneOfString(string()) + fret()) == note;
}

bool QBTone::isLargeNote(int note) const {
  return QBInstrument::largeToneOfStringS(string()) + fret() == note;
}

bool QBTone::equals(const QBTone& other) const {
  return fret() == other.fret() && string() == other.string();
}

std::string QBTone::toString() const { return toStringClean() + "\r\n"; }

std::string QBTone::toStringClean() const { return std::to_string(fret()); }

}  // namespace korvel
