// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/QBPreciseRecorder.h"

#include "analysis/QBChordAnalyser.h"
#include "model/QBAlbum.h"
#include "model/QBSong.h"

namespace korvel {

QBPreciseRecorder::QBPreciseRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBSong* newSong,
                                     QBAlbum* album)
    : QBRecorder(std::move(analyser), album), m_newSong(newSong) {}

QBPreciseRecorder::~QBPreciseRecorder() = default;

QBChord* QBPreciseRecorder::nextStep() {
  return scratchSong() ? analyser()->nextChord(m_newSong) : nullptr;
}

QBChord* QBPreciseRecorder::nextChord() { return completed(nextStep()); }

}  // namespace korvel
