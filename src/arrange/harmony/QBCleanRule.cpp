// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBCleanRule.h"

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "music/Pitch.h"

namespace korvel {

bool QBCleanRule::matches(const QBChord& chord, int testedString, int testedFret) const {
  const int note = addNotes(QBInstrument::largeToneOfStringS(testedString), testedFret);
  const int fret = addNotes(note, offset - QBInstrument::largeToneOfStringS(string));
  return fret >= 0 && chord.hold() && chord.hold()->findTone(string, fret);
}

}  // namespace korvel
