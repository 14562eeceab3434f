// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/hearing/Hearing.h"

#include "analysis/chords/QBChordAnalyser.h"
#include "audio/QBSampleSource.h"
#include "model/songs/QBSong.h"
#include "recording/QBRecorder.h"

namespace korvel {

Hearing::Hearing(std::shared_ptr<QBChordAnalyser> analyser, std::unique_ptr<QBRecorder> recorder)
    : m_analyser(std::move(analyser)), m_recorder(std::move(recorder)) {}

Hearing::~Hearing() = default;

void Hearing::begin() { m_recorder->startWithoutTimer("Test", 0.0F); }

QBChord* Hearing::next() { return m_recorder->nextChord(); }

bool Hearing::atEnd() const { return m_analyser->atEnd(); }

double Hearing::progress() const { return m_analyser->progress(); }

void Hearing::end() { m_recorder->stopWithoutTimer(); }

void Hearing::dropSound() {
  if (source()) source()->stopRecord();
}

QBSong* Hearing::scratch() const { return m_recorder->scratchSong(); }

const std::shared_ptr<QBSampleSource>& Hearing::source() const { return m_analyser->m_source(); }

}  // namespace korvel
