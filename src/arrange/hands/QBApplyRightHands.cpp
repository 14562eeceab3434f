// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBApplyRightHands.h"

#include <algorithm>

#include "model/book/QBRightHandPattern.h"
#include "model/instruments/QBString.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {

void QBApplyRightHands::execute(QBChord* previous, QBChord* current, QBChord*) {
  QBRightHandPattern* pattern = m_choice.findPatternByChord(previous, *current);
  if (!pattern) return;
  const auto rows = pattern->strings().snapshot();
  Tones dropped = tonesOf(*current);
  std::erase_if(dropped, [&](const auto& tone) {
    return std::ranges::any_of(rows,
                               [&](const auto& row) { return row->order() == tone->string(); });
  });
  deleteTones(*current, dropped);
  current->setPattern(pattern);
}

}  // namespace korvel
