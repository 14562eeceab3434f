// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/PreciseRecorder.h"

#include "analysis/chords/QBChordAnalyser.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {

PreciseRecorder::PreciseRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBSong* newSong,
                                 QBAlbum* album)
    : QBRecorder(std::move(analyser), album), m_newSong(newSong) {}

PreciseRecorder::~PreciseRecorder() = default;

QBChord* PreciseRecorder::nextStep() {
  return scratchSong() ? analyser()->nextChord(m_newSong) : nullptr;
}

/// A chord on the beat is called as the span that it lies in is.
QBChord* PreciseRecorder::nextChord() {
  QBChord* chord = nextStep();
  if (!chord || !chord->hasTicks()) return completed(chord);
  QBToneGroupBuilder(chord).build();
  return chord;
}

}  // namespace korvel
