// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/QBToneToNextString.h"

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "music/Neck.h"

namespace korvel {
QBToneToNextString::QBToneToNextString(QBSong* target) : m_target(target) {}

QBToneToNextString::~QBToneToNextString() = default;

void QBToneToNextString::execute(QBChord*, QBChord* current, QBChord*) {
  m_made = m_target->createChord();
  for (const auto& tone : byStringAndFret(*current)) {
    const int note = largeToneOf(*tone);
    QBTone* placed = findPositionsFrom(*m_made, tone->string(), note);
    if (!placed) placed = m_made->hold()->addTone(tone->string(), tone->fret(), 0.0);
    placed->setAmp(tone->amp());
  }
}

QBTone* QBToneToNextString::findPositionsFrom(QBChord& chord, int string, int note) {
  const OpenStrings strings = openStringsOf(chord);
  for (int lower = string - 1; lower >= lowestString(); --lower) {
    const int fret = strings.fret(lower, note);
    if (fret < 0 || fret >= kFretsToMoveTo) continue;
    return mayMoveTo(chord, lower, fret) ? chord.hold()->addTone(lower, fret, 0.0) : nullptr;
  }
  return nullptr;
}

bool QBToneToNextString::mayMoveTo(QBChord&, int, int) { return true; }

QBChord* QBToneToNextString::made() const { return m_made; }

}  // namespace korvel
