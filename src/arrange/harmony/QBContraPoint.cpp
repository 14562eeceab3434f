// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBContraPoint.h"

#include <limits>

#include "model/instruments/QBInstrument.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"

namespace korvel {
namespace {

constexpr int kBelowAnyTone = std::numeric_limits<int>::min();

}  // namespace

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
  return chord.hold() ? chord.hold()->findMelodyTone() : nullptr;
}

QBTone* QBContraPoint::brassTone(const QBChord& chord) const {
  return chord.hold() ? chord.hold()->findBrassTone() : nullptr;
}

int QBContraPoint::noteOfTone(const QBTone* tone) const {
  return tone ? largeToneOf(*tone) : kBelowAnyTone;
}

bool QBContraPoint::melodyFalls(const QBChord& previous, const QBChord& current) const {
  return noteOfTone(melodyTone(previous)) > noteOfTone(melodyTone(current));
}

}  // namespace korvel
