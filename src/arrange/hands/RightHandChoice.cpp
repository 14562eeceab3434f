// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/RightHandChoice.h"

#include <algorithm>

#include "arrange/hands/PatternOfChord.h"
#include "model/book/QBRightHandPattern.h"
#include "model/songs/QBChord.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

RightHandChoice::RightHandChoice() : m_patterns(QBTabMgr::db().patterns()) {
  std::ranges::stable_sort(m_patterns, {}, [](const auto& pattern) { return pattern->order(); });
}

RightHandChoice::~RightHandChoice() = default;

QBRightHandPattern* RightHandChoice::findPatternByChord(QBChord* previous,
                                                        const QBChord& current) const {
  const QBRightHandPattern* before = previous ? readPattern(*previous, nullptr) : nullptr;
  QBRightHandPattern* best = nullptr;
  int bestWeight = -1;
  for (const auto& pattern : m_patterns) {
    if (pattern->weight() <= bestWeight || !pattern->matches(current)) continue;
    if (before && !pattern->isPlayable(*before)) continue;
    best = pattern;
    bestWeight = pattern->weight();
  }
  return best;
}

}  // namespace korvel
