// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBChordRecorder.h"

#include "arrange/QBToneGroupBuilder.h"
#include "model/QBChord.h"

namespace korvel {

QBChord* QBChordRecorder::nextChord() {
  QBChord* chord = nextStep();
  if (!chord) return nullptr;
  chord->readHarmony();
  QBToneGroupBuilder(chord).build();
  return chord;
}

}  // namespace korvel
