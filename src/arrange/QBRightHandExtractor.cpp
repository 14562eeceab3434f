// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBRightHandExtractor.h"

#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBRightHandPattern.h"
#include "model/QBSong.h"
#include "model/QBString.h"
#include "model/QBTone.h"

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
  made->readHarmony();
}

}  // namespace korvel
