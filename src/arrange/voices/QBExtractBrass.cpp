// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBExtractBrass.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBExtractBrass::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = lowestFirst(*current);
  if (!tones.empty()) deleteTones(*current, std::span(tones).subspan(1));
}

}  // namespace korvel
