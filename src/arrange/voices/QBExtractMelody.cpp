// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBExtractMelody.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBExtractMelody::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  if (!tones.empty()) deleteTones(*current, std::span(tones).subspan(1));
}

}  // namespace korvel
