// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/PatternOfChord.h"

#include "model/book/QBRightHandPattern.h"
#include "model/songs/QBChord.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

QBRightHandPattern* findPatternByChord(const QBTabMgr& db, QBChord* previous,
                                       const QBChord& chord) {
  const QBRightHandPattern* before = previous ? readPattern(*previous, nullptr) : nullptr;
  QBRightHandPattern* best = nullptr;
  int bestWeight = -1;
  for (const auto& pattern : db.patterns()) {
    if (!pattern->matches(chord) || (before && !pattern->isPlayable(*before))) continue;
    if (pattern->weight() <= bestWeight) continue;
    best = pattern;
    bestWeight = pattern->weight();
  }
  return best;
}

QBRightHandPattern* readPattern(QBChord& chord, QBChord* previous) {
  if (!chord.pattern()) chord.setPattern(findPatternByChord(QBTabMgr::of(chord), previous, chord));
  return chord.pattern();
}

}  // namespace korvel
