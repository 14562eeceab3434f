// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBChord.h"

#include <algorithm>

#include "arrange/chords/ToneOrder.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBRightHandPattern.h"
#include "model/songs/QBBlock.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

const Tones& QBChord::readAllTones() {
  if (!m_scannedTones) m_scannedTones = tonesOf(*this);
  return *m_scannedTones;
}

QBHarmony* QBChord::readHarmony() { return QBTabMgr::db().findHarmonyByChord(this); }

QBRightHandPattern* QBChord::readPattern(QBChord* previous) {
  if (!pattern()) setPattern(QBTabMgr::db().findPatternByChord(previous, this));
  return pattern();
}

std::string QBChord::fullHarmonyName() const {
  const QBHarmony* named = harmony();
  return QBHarmony::noteAsString(baseTone()).value_or("") + (named ? named->type() : "");
}

const std::optional<std::string>& QBChord::toKey() {
  if (!m_key && harmony()) m_key = fullHarmonyName();
  return m_key;
}

bool QBChord::equals(const QBChord& other) const {
  const Tones mine = tonesOf(*this);
  if (mine.size() != tonesOf(other).size()) return false;
  return std::ranges::all_of(mine, [&](const auto& tone) {
    return other.hold()->findTone(tone->string(), tone->fret()) != nullptr;
  });
}

QBChord* QBChord::clone(QBSong* owner) {
  QBChord* copy = QBTabMgr::db().createChord(owner, m_fft(), timestamp());
  if (hasBaseTone()) copy->setBaseTone(baseTone());
  copy->setHarmony(harmony());
  copy->setDuration(duration());
  copy->setBlock(block());
  if (QBHold* held = hold()) held->clone(copy);
  return copy;
}

void QBChord::mergeWith(const QBChord& other) {
  QBHold* held = hold();
  if (!held) return;
  for (const auto& tone : tonesOf(other))
    if (!held->findTone(tone->string(), tone->fret()))
      held->addTone(tone->string(), tone->fret(), tone->amp());
}

void QBChord::setDurationValue(int offered) {
  if (duration() == 0 || duration() > offered) setDuration(offered);
}

int QBChord::weight() const {
  const QBHold* held = hold();
  int sum = 2;
  if (held) sum += static_cast<int>(held->tones().size()) + 5 - held->sizeOfHold();
  if (const QBRightHandPattern* right = pattern()) sum += right->weight() + 2;
  if (leftpattern()) sum += 5;
  return sum;
}

}  // namespace korvel
