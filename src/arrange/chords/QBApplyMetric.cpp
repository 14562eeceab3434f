// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/chords/QBApplyMetric.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

QBApplyMetric::QBApplyMetric(int beat, int beattype, QBSong* song)
    : m_beat(beat), m_beattype(beattype), m_song(song) {}

QBApplyMetric::~QBApplyMetric() = default;

void QBApplyMetric::execute(QBChord*, QBChord* current, QBChord*) {
  if (!current->hold() || current->hold()->isEmpty()) return;
  if (!m_cursor) openMeasure();
  // A chord longer than a whole measure leaves the one before it as it is, also the first and empty
  // one, as intended.
  if (!m_cursor->fitsIn(current->duration())) openMeasure();
  m_cursor->addChord(current);
}

void QBApplyMetric::openMeasure() {
  m_cursor = QBTabMgr::of(*m_song).createMeasure(m_song, m_beat, m_beattype);
}

}  // namespace korvel
