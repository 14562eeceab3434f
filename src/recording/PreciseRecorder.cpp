// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/PreciseRecorder.h"

#include "analysis/chords/QBChordAnalyser.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"

namespace korvel {

PreciseRecorder::PreciseRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBSong* newSong,
                                 QBAlbum* album)
    : QBRecorder(std::move(analyser), album), m_newSong(newSong) {}

PreciseRecorder::~PreciseRecorder() = default;

QBChord* PreciseRecorder::nextStep() {
  return scratchSong() ? analyser()->nextChord(m_newSong) : nullptr;
}

QBChord* PreciseRecorder::nextChord() { return completed(nextStep()); }

}  // namespace korvel
