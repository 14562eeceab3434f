// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBTone.h"

#include "model/book/QBHarmony.h"
#include "model/instruments/QBInstrument.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"

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
