// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/recordings/KeepSoundCommand.h"

#include <cmath>

#include "model/recorded/SongRecording.h"
#include "model/songs/QBSong.h"
#include "platform/text/UserError.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/recordings/RecordingSound.h"

namespace korvel {
namespace {

using platform::phrase;

/// Of the work; reading a file is quick beside writing it anew.
constexpr double kShareOfProof = 0.2;

}  // namespace

KeepSoundCommand::KeepSoundCommand(const QBSong& song)
    : m_recording(song.recording()), m_title(song.title()) {
  m_type = phrase("Job", "Copy of a Recording");
  m_name = ": " + m_title;
}

KeepSoundCommand::~KeepSoundCommand() = default;

void KeepSoundCommand::prepare() { m_work = keeping(); }

void KeepSoundCommand::execute() { m_work.finish(); }

platform::Slices KeepSoundCommand::keeping() {
  const auto file = requireRecordingFile(*m_recording, Proof::atOnce);
  if (file == m_recording->path()) {
    platform::Slices proving = readingContent(file);
    while (proving.next()) co_yield kShareOfProof* proving.done();
  }
  if (m_recording->isDeleted()) co_return;
  platform::Slices copying = keepingSound(*m_recording, requireRecordingFile(*m_recording));
  while (copying.next()) co_yield kShareOfProof + (1 - kShareOfProof) * copying.done();
}

void KeepSoundCommand::nextStep() {
  try {
    const bool more = m_work.next();
    m_percent = static_cast<int>(std::lround(kAll * m_work.done()));
    if (!more) m_recording->isDeleted() ? cancelAndDrop() : stop();
  } catch (const platform::UserError& problem) {
    abandonSteps();
    printOut(problem.text());
    end(problem.text());
  }
}

void KeepSoundCommand::tearDown() {
  m_percent = kAll;
  printOut({phrase("Log", "%1: a copy of the recording is kept."), m_title});
  end({});
}

void KeepSoundCommand::cancelAndDrop() {
  abandonSteps();
  m_work = {};
  printOut({phrase("Log", "%1: cancelled, no copy of the recording is kept."), m_title});
}

void KeepSoundCommand::end(const platform::UserText& problem) {
  m_work = {};
  if (m_ended) m_ended(problem);
}

}  // namespace korvel
