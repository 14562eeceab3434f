// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/ChangedTones.h"

#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBLeftHandPattern.h"
#include "model/book/QBRightHandPattern.h"
#include "model/songs/QBChord.h"
#include "workflow/editing/ChordTicks.h"

namespace korvel {

void dropPatterns(QBChord& chord) {
  if (chord.pattern() && !chord.pattern()->matches(chord)) chord.setPattern(nullptr);
  chord.setLeftpattern(nullptr);
}

void regroup(QBChord& chord) {
  dropPatterns(chord);
  chord.forgetCaches();
  if (!isToneless(chord)) QBToneGroupBuilder(&chord).build();
}

void readAnew(QBChord& chord) {
  dropPatterns(chord);
  chord.setHarmony(nullptr);
  chord.clearBaseTone();
  chord.forgetCaches();
  readHarmony(chord);
  QBToneGroupBuilder(&chord).build();
  chord.forgetCaches();
}

}  // namespace korvel
