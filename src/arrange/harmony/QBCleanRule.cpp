// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBCleanRule.h"

#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "music/Pitch.h"

namespace korvel {

bool QBCleanRule::matches(const QBChord& chord, int testedString, int testedFret) const {
  const OpenStrings strings = openStringsOf(chord);
  const int note = strings.note(testedString, testedFret);
  const int fret = strings.fret(string, addNotes(note, offset));
  return fret >= 0 && chord.hold() && chord.hold()->findTone(string, fret);
}

}  // namespace korvel
