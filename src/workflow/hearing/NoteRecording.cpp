// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/NoteRecording.h"

#include "analysis/chords/QBChordAnalyserStandard.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "recording/LiveTake.h"
#include "recording/QBWaveIn.h"
#include "workflow/hearing/LiveRecording.h"

namespace korvel {
namespace {

constexpr double kStepSeconds = 0.05;
/// Who forgot to stop shall not fill the memory.
constexpr double kLongest = 600;

}  // namespace

NoteRecording::NoteRecording() = default;

NoteRecording::~NoteRecording() {
  m_ended = nullptr;
  stop();
  if (m_take) m_take->removeFile();
}

void NoteRecording::start(const std::string& device) {
  m_take = std::make_unique<LiveTake>(LiveRecording::freeTake());
  m_analyser = std::make_shared<QBChordAnalyserStandard>(nullptr, QBTabMgr::db().selectedTuning());
  m_wave = std::make_shared<QBWaveIn>(m_analyser.get());
  m_analyser->setM_source(m_wave);
  m_wave->setDevice(device);
  m_wave->onBlock([this](const QBSampleBlock& block) { m_take->add(block); });
  m_wave->startRecord(0.0F);
  m_timer = platform::RunLoop::main().scheduleRepeating(kStepSeconds, [this] { step(); });
}

void NoteRecording::step() {
  takeBlocks();
  if (m_wave->m_microphone().hasEnded() || elapsed() >= kLongest) stop();
}

void NoteRecording::takeBlocks() {
  while (m_wave->readBuffer()) continue;
}

void NoteRecording::stop() {
  if (!m_timer) return;
  m_timer.reset();
  m_wave->stopRecord();
  takeBlocks();
  if (m_ended) m_ended();
}

bool NoteRecording::isLost() const { return m_wave && m_wave->m_microphone().isLost(); }

double NoteRecording::elapsed() const { return m_take ? m_take->seconds() : 0; }

float NoteRecording::level() const { return m_take ? m_take->level() : 0; }

std::shared_ptr<QBSampleSource> NoteRecording::sound() const { return m_take->sound(); }

}  // namespace korvel
