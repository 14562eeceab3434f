// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/voices/QBRemoveMelodyBrass.h"

#include "model/songs/ToneOrder.h"

namespace korvel {

void QBRemoveMelodyBrass::execute(QBChord*, QBChord* current, QBChord*) {
  const Tones tones = highestFirst(*current);
  if (tones.size() < 3) return;
  deleteTones(*current, std::span(tones).first(1));
  deleteTones(*current, std::span(tones).last(1));
}

}  // namespace korvel
