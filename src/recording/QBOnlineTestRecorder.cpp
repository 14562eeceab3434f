// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBOnlineTestRecorder.h"

#include "analysis/chords/QBChordAnalyser.h"
#include "analysis/instrument/ToneFilter.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBInstrument.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {

QBOnlineTestRecorder::QBOnlineTestRecorder(std::shared_ptr<QBChordAnalyser> analyser,
                                           QBInstrument* instrument, QBSong* newSong,
                                           QBAlbum* album)
    : QBRecorder(std::move(analyser), album), m_instrument(instrument), m_newSong(newSong) {}

QBOnlineTestRecorder::~QBOnlineTestRecorder() = default;

QBChord* QBOnlineTestRecorder::nextStep() {
  QBChord* raw = QBRecorder::nextStep();
  if (!raw) return nullptr;
  QBChord* filtered = filter(raw);
  scratchSong()->deleteChord(raw);
  return filtered;
}

QBChord* QBOnlineTestRecorder::filter(QBChord* chord) {
  QBChord* target = QBTabMgr::of(*chord).createChord(m_newSong, chord->m_fft(), chord->timestamp());
  for (const auto& tone : chord->readAllTones())
    if (confirms(*chord, tone->string(), tone->fret()))
      target->hold()->applyTone(tone->string(), tone->fret(), tone->amp());
  return target;
}

bool QBOnlineTestRecorder::confirms(QBChord& chord, int string, int fret) const {
  if (!m_instrument || string < 0 || string >= kStrings) return false;
  return filterString(*m_instrument, string, fret, chord);
}

QBChord* QBOnlineTestRecorder::nextChord() {
  if (m_filtered.empty()) return nullptr;
  QBChord* chord = m_filtered.front();
  m_filtered.pop_front();
  return chord;
}

void QBOnlineTestRecorder::setVolume(float volume) { analyser()->m_source()->setVolume(volume); }

float QBOnlineTestRecorder::getVolume() const { return analyser()->m_source()->getVolume(); }

}  // namespace korvel
