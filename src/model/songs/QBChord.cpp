// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/QBChord.h"

#include <algorithm>

#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/recorded/QBBlock.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/EntityDescription.h"

namespace korvel {

platform::EntityDescription QBChord::describe() {
  return platform::EntityBuilder<QBChord>("QBChord")
      .attribute<&QBChord::m_position>("position")
      .attribute<&QBChord::m_duration>("duration")
      .attribute<&QBChord::m_timestamp>("timestamp")
      .attribute<&QBChord::m_ticks>("ticks")
      .attribute<&QBChord::m_beatTime>("beatTime")
      .attribute<&QBChord::m_edited>("edited")
      .attribute<&QBChord::m_handFret>("handFret")
      .attribute<&QBChord::m_baseTone>("baseTone")
      .attribute<&QBChord::m_groupNumber>("groupNumber")
      .toOne<&QBChord::m_song>("song", "QBSong", "chords")
      .toOne<&QBChord::m_measure>("measure", "QBMeasure", "chords")
      .toOne<&QBChord::m_harmony>("harmony", "QBHarmony", "chords")
      .toOne<&QBChord::m_pattern>("pattern", "QBRightHandPattern")
      .toOne<&QBChord::m_leftpattern>("leftpattern", "QBLeftHandPattern")
      .toOneInverse<&QBChord::m_hold>("hold", "QBHold", "chord", true)
      .toOneInverse<&QBChord::m_block>("block", "QBBlock", "chord", true)
      .build();
}

QBChord::QBChord() = default;

QBChord::~QBChord() = default;

QBSong* QBChord::song() const { return target(m_song); }

void QBChord::setSong(QBSong* value) { relate(m_song, value); }

QBMeasure* QBChord::measure() const { return target(m_measure); }

void QBChord::setMeasure(QBMeasure* value) { relate(m_measure, value); }

QBHarmony* QBChord::harmony() const { return target(m_harmony); }

void QBChord::setHarmony(QBHarmony* value) { relate(m_harmony, value); }

QBRightHandPattern* QBChord::pattern() const { return target(m_pattern); }

void QBChord::setPattern(QBRightHandPattern* value) { relate(m_pattern, value); }

QBLeftHandPattern* QBChord::leftpattern() const { return target(m_leftpattern); }

void QBChord::setLeftpattern(QBLeftHandPattern* value) { relate(m_leftpattern, value); }

QBHold* QBChord::hold() const { return target(m_hold); }

void QBChord::setHold(QBHold* value) { relate(m_hold, value); }

QBBlock* QBChord::block() const { return target(m_block); }

void QBChord::setBlock(QBBlock* value) { relate(m_block, value); }

void QBChord::forgetCaches() {
  m_scannedTones.reset();
  m_key.reset();
  m_xPosInMatrix = m_yPosInMatrix = 0;
  if (QBSong* owner = song()) owner->forgetCaches();
}

const Tones& QBChord::readAllTones() {
  if (!m_scannedTones) m_scannedTones = tonesOf(*this);
  return *m_scannedTones;
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
  QBChord* copy = QBTabMgr::of(*this).createChord(owner, m_fft(), timestamp());
  if (hasBaseTone()) copy->setBaseTone(baseTone());
  copy->setHarmony(harmony());
  copy->setDuration(duration());
  if (hasTicks()) copy->setTicks(ticks());
  if (hasBeatTime()) copy->setBeatTime(beatTime());
  if (isEdited()) copy->setEdited(true);
  if (hasHandFret()) copy->setHandFret(handFret());
  copy->setBlock(block());
  if (QBHold* held = hold()) held->clone(copy);
  return copy;
}

void QBChord::mergeWith(const QBChord& other) {
  QBHold* held = hold();
  if (!held) return;
  for (const auto& tone : tonesOf(other)) {
    if (held->findTone(tone->string(), tone->fret())) continue;
    QBTone* added = held->addTone(tone->string(), tone->fret(), tone->amp());
    if (!hasTicks() || !tone->hasTicks()) continue;
    added->setTicks(tone->ticks());
    added->setDuration(tone->duration());
  }
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
