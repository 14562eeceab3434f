// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBContraPoint.h"

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "music/Pitch.h"

namespace korvel {

void QBContraPoint::execute(QBChord* previous, QBChord* current, QBChord*) {
  if (!previous || !m_instrument()) return;
  const int bassBefore = noteOfTone(brassTone(*previous));
  QBTone* bass = brassTone(*current);
  if (!melodyFalls(*previous, *current)) {
    if (bass && noteOfTone(bass) == bassBefore) current->hold()->deleteTone(bass);
    return;
  }
  for (; bass && noteOfTone(bass) <= bassBefore; bass = brassTone(*current))
    current->hold()->deleteTone(bass);
}

QBTone* QBContraPoint::melodyTone(const QBChord& chord) const {
  return chord.hold() ? chord.hold()->findMelodyTone(*m_instrument()) : nullptr;
}

QBTone* QBContraPoint::brassTone(const QBChord& chord) const {
  return chord.hold() ? chord.hold()->findBrassTone(*m_instrument()) : nullptr;
}

int QBContraPoint::noteOfTone(const QBTone* tone) const {
  return tone ? addNotes(m_instrument()->largeToneOfString(tone->string()), tone->fret()) : 0;
}

bool QBContraPoint::melodyFalls(const QBChord& previous, const QBChord& current) const {
  return noteOfTone(melodyTone(previous)) > noteOfTone(melodyTone(current));
}

}  // namespace korvel
