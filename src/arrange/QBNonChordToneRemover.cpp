// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/QBNonChordToneRemover.h"

#include "arrange/ToneOrder.h"
#include "model/Pitch.h"
#include "model/QBChord.h"
#include "model/QBHarmony.h"
#include "model/QBTone.h"

namespace korvel {

void QBNonChordToneRemover::execute(QBChord*, QBChord* current, QBChord*) {
  QBHarmony* harmony = current->readHarmony();
  if (!harmony) return;
  Tones foreign;
  for (const auto& tone : tonesOf(*current))
    if (!harmony->includesNote(current->baseTone(), pitchClass(largeToneOf(*tone))))
      foreign.push_back(tone);
  deleteTones(*current, foreign);
}

}  // namespace korvel
