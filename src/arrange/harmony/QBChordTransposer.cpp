// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/QBChordTransposer.h"

#include <algorithm>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
QBChordTransposer::QBChordTransposer(QBChord* source, QBInstrument* instrument, int minFret,
                                     int offset)
    : m_source(source),
      m_lowestFret(minFret),
      m_offset(offset),
      m_strings(openStringsOf(*source)),
      m_scratch(QBTabMgr::of(*source), "Transpose Album", "Transposer", tuningOf(source->song()),
                instrument) {}

QBChordTransposer::~QBChordTransposer() = default;

QBChord* QBChordTransposer::transpose() {
  QBChord* target = QBTabMgr::of(*m_source).createChord(m_scratch.song(), m_source->m_fft(),
                                                        m_source->timestamp());
  target->setDuration(m_source->duration());
  if (m_source->hasTicks()) target->setTicks(m_source->ticks());
  if (m_source->hasBeatTime()) target->setBeatTime(m_source->beatTime());
  target->setBaseTone(pitchClass(m_source->baseTone() + pitchClass(m_offset)));
  for (const auto& tone : tonesOf(*m_source))
    if (tone->isActive()) place(*tone, *target->hold());
  return target;
}

void QBChordTransposer::place(const QBTone& tone, QBHold& target) const {
  int note = addNotes(largeToneOf(tone), m_offset);
  if (note < std::min(m_strings.lowestNote(), 0)) note += kNotesPerOctave;
  for (int string = kStrings - 1; string >= 0; --string) {
    const int fret = m_strings.fret(string, note);
    if (fret < 0 || fret >= kFretsToMoveTo) continue;
    // Of tones that meet on one fret the first stays as it is.
    if (target.findTone(string, fret)) return;
    QBTone* placed = target.addTone(string, fret, tone.amp());
    placed->setDuration(tone.duration());
    if (tone.hasTicks()) placed->setTicks(tone.ticks());
    return;
  }
}

}  // namespace korvel
