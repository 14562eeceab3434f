// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/NoteRecording.h"

#include "recording/MicrophoneTake.h"
#include "workflow/takes/TakeFiles.h"

namespace korvel {
namespace {

/// Who forgot to stop shall not fill the memory.
constexpr double kLongest = 600;

}  // namespace

NoteRecording::NoteRecording() = default;

NoteRecording::~NoteRecording() {
  m_ended = nullptr;
  stop();
  if (m_sound) m_sound->take().removeFile();
}

void NoteRecording::start(const std::string& device) {
  m_sound = std::make_unique<MicrophoneTake>(freeTakeFile(), device);
  m_sound->source()->startRecord(0.0F);
  m_timer =
      platform::RunLoop::main().scheduleRepeating(MicrophoneTake::kStepSeconds, [this] { step(); });
}

void NoteRecording::step() {
  takeBlocks();
  if (m_sound->microphone().hasEnded() || elapsed() >= kLongest) stop();
}

void NoteRecording::takeBlocks() {
  while (m_sound->source()->readBuffer()) continue;
}

void NoteRecording::stop() {
  if (!m_timer) return;
  m_timer.reset();
  m_sound->source()->stopRecord();
  takeBlocks();
  if (m_ended) m_ended();
}

bool NoteRecording::isLost() const { return m_sound && m_sound->microphone().isLost(); }

double NoteRecording::elapsed() const { return m_sound ? m_sound->take().seconds() : 0; }

float NoteRecording::level() const { return m_sound ? m_sound->take().level() : 0; }

std::shared_ptr<QBSampleSource> NoteRecording::sound() const { return m_sound->take().sound(); }

}  // namespace korvel
