// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBExtractMelody.h"

#include "arrange/ToneOrder.h"

namespace korvel {

void QBExtractMelody::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  if (!tones.empty()) deleteTones(*current, std::span(tones).subspan(1));
}

}  // namespace korvel
