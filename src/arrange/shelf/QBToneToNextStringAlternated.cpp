// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBToneToNextStringAlternated.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"

namespace korvel {

QBToneToNextStringAlternated::~QBToneToNextStringAlternated() = default;

void QBToneToNextStringAlternated::execute(QBChord* previous, QBChord* current, QBChord* next) {
  QBToneToNextString::execute(previous, current, next);
  m_last = made();
}

bool QBToneToNextStringAlternated::mayMoveTo(QBChord& made, int string, int fret) {
  constexpr int kFretsApart = 2;
  QBHold* last = m_last ? m_last->hold() : nullptr;
  if (!last || !last->findTone(string, fret)) return true;
  const int lowest = std::min(last->m_minFret, made.hold()->m_minFret);
  return last->m_minFret - 1 - std::min(lowest, made.hold()->m_maxFret) >= kFretsApart;
}

}  // namespace korvel
