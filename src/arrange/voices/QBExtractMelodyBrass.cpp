// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBExtractMelodyBrass.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBExtractMelodyBrass::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = lowestFirst(*current);
  if (tones.size() >= 3) deleteTones(*current, std::span(tones).subspan(1, tones.size() - 2));
}

}  // namespace korvel
