// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/MicrophoneTake.h"

#include <algorithm>
#include <utility>

#include "analysis/chords/QBChordAnalyser.h"
#include "model/instruments/QBTuning.h"
#include "platform/sound/AudioQueue.h"

namespace korvel {

MicrophoneTake::MicrophoneTake(std::filesystem::path file, const std::string& device)
    : m_take(std::move(file)),
      m_analyser(std::make_unique<QBChordAnalyser>(nullptr, nullptr)),
      m_wave(std::make_shared<QBWaveIn>(m_analyser.get())) {
  m_analyser->setM_source(m_wave);
  m_wave->setDevice(device);
  m_wave->onBlock([this](const QBSampleBlock& block) {
    m_grown = true;
    m_take.add(block);
  });
}

/// Others may hold the source for longer.
MicrophoneTake::~MicrophoneTake() {
  m_wave->stopRecord();
  m_wave->onBlock({});
}

bool MicrophoneTake::hasGrown() { return std::exchange(m_grown, false); }

/// Blocks after the last one that was read leave no gap in the take.
double MicrophoneTake::lostSeconds() const {
  const double dropped = static_cast<double>(m_wave->nmbOfDroppedBlocks()) *
                         QBAudioMicrophone::kPackets / platform::kLiveSound.sampleRate;
  return std::max(m_take.lostSeconds(), dropped);
}

}  // namespace korvel
