// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBRightHandExtractor.h"

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {

QBRightHandExtractor::QBRightHandExtractor(QBSong* target) : m_target(target) {}

QBRightHandExtractor::~QBRightHandExtractor() = default;

void QBRightHandExtractor::execute(QBChord* previous, QBChord* current, QBChord*) {
  if (const QBRightHandPattern* pattern = findPatternByChord(previous, *current))
    toChord(*current, *pattern);
  else
    current->clone(m_target);
}

void QBRightHandExtractor::toChord(const QBChord& chord, const QBRightHandPattern& pattern) {
  QBChord* made = m_target->createChord();
  for (const QBString* row : pattern.strings())
    if (const QBTone* tone = chord.hold() ? chord.hold()->findToneByString(row->order()) : nullptr)
      made->hold()->addTone(tone->string(), tone->fret(), tone->amp());
  readHarmony(*made);
}

}  // namespace korvel
