// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBRemoveBrass.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBRemoveBrass::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  if (tones.size() >= 3) deleteTones(*current, std::span(tones).last(1));
}

}  // namespace korvel
