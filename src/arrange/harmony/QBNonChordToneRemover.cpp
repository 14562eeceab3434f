// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBNonChordToneRemover.h"

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Pitch.h"

namespace korvel {

void QBNonChordToneRemover::execute(QBChord*, QBChord* current, QBChord*) {
  QBHarmony* harmony = readHarmony(*current);
  if (!harmony) return;
  Tones foreign;
  for (const auto& tone : tonesOf(*current))
    if (!harmony->includesNote(current->baseTone(), pitchClass(largeToneOf(*tone))))
      foreign.push_back(tone);
  deleteTones(*current, foreign);
}

}  // namespace korvel
