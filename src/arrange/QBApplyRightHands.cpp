// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBApplyRightHands.h"

#include <algorithm>

#include "arrange/ToneOrder.h"
#include "model/QBChord.h"
#include "model/QBRightHandPattern.h"
#include "model/QBString.h"
#include "model/QBTone.h"

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
