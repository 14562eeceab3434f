// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBWaveIn.h"

namespace korvel {

QBWaveIn::QBWaveIn(QBChordAnalyser* analyser) : m_micro(analyser) {}

// Before the queue of blocks goes that the audio thread pushes into.
QBWaveIn::~QBWaveIn() { m_micro.StopRecord(); }

void QBWaveIn::startRecord(float volume) {
  prepareBlocks();
  m_micro.StartRecord(volume);
}

void QBWaveIn::stopRecord() {
  m_micro.StopRecord();
  QBSampleSource::stopRecord();
}

std::unique_ptr<QBSampleBlock> QBWaveIn::readBuffer() {
  auto block = QBSampleSource::readBuffer();
  if (block && m_listener) m_listener(*block);
  return block;
}

}  // namespace korvel
