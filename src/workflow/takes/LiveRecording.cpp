// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/takes/LiveRecording.h"

#include <utility>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "platform/loop/Deadline.h"
#include "platform/persistence/UndoManager.h"
#include "platform/text/LocalTime.h"
#include "platform/text/UserError.h"
#include "recording/MicrophoneTake.h"
#include "recording/hearing/Hearing.h"
#include "tab/text/SongDrawing.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/session/Edit.h"
#include "workflow/session/SongInWork.h"
#include "workflow/takes/TakeFiles.h"
#include "workflow/takes/TakeHearing.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr double kWholeStepSeconds = 0.01;

}  // namespace

LiveRecording::LiveRecording(QBTabMgr& db, Options options)
    : m_db(db), m_options(std::move(options)) {}

LiveRecording::~LiveRecording() {
  const platform::UndoStep part(m_undo);
  if (m_state == State::recording) m_live->end();
  m_second.reset();
  m_made.reset();
}

void LiveRecording::start() {
  Edit::requireWritable(m_db);
  m_undo = std::make_shared<platform::UndoGroup>(m_db.context().undoManager(),
                                                 platform::phrase("UndoAction", "Record"));
  m_undo->suspend();
  const platform::UndoStep part(m_undo);
  try {
    make();
    m_live->begin();
  } catch (...) {
    if (m_live) m_live->end();
    if (m_sound) m_sound->take().removeFile();
    m_made.reset();
    m_undo.reset();
    throw;
  }
  every(MicrophoneTake::kStepSeconds, &LiveRecording::hearLive);
  enter(State::recording);
}

void LiveRecording::make() {
  m_sound = std::make_unique<MicrophoneTake>(
      m_options.keptTake.empty() ? freeTakeFile() : m_options.keptTake, m_options.device);
  m_made = std::make_unique<NewSong>(
      m_db, m_options.album, m_options.title.value_or(platform::localTime("%Y-%m-%d %H:%M:%S")));
  if (!m_options.tuning) m_options.tuning = m_db.selectedTuning();
  m_made->song()->setTuning(m_options.tuning);
  m_mark = std::make_unique<SongInWork>(m_made->song(), SongInWork::Filler::recording);
  m_live = m_options.detection->ofLive(m_sound->source(), taskFor(m_made->song()));
}

HearingTask LiveRecording::taskFor(QBSong* song) const {
  return {song, m_made->album(), m_options.tuning, m_db.selectedInstrument(), m_options.settings};
}

void LiveRecording::every(double seconds, void (LiveRecording::*step)()) {
  m_timer = platform::RunLoop::main().scheduleRepeating(seconds, [this, step] { (this->*step)(); });
}

void LiveRecording::stop() {
  if (m_state == State::recording) m_sound->source()->stopRecord();
}

void LiveRecording::hearLive() {
  const platform::UndoStep part(m_undo);
  tellOf(nextLiveChord());
  if (m_state == State::recording && isPlayingOver()) endPlaying();
}

QBChord* LiveRecording::nextLiveChord() {
  try {
    requireSongs();
    return m_live->next();
  } catch (const std::exception& error) {
    m_problem = platform::textOf(error);
    stop();
    return nullptr;
  }
}

void LiveRecording::tellOf(QBChord* chord) {
  if (chord && !chord->hold()->isEmpty() && m_listeners.chord) m_listeners.chord(*chord);
}

/// What still waits when the microphone has been stopped is heard step by step as before. Only a
/// step that began after its end can tell that nothing waits any more.
bool LiveRecording::isPlayingOver() {
  const QBAudioMicrophone& microphone = m_sound->microphone();
  const bool drained = !m_sound->hasGrown() && !microphone.isRunning();
  if (microphone.hasEnded()) {
    m_ending = microphone.isLost() ? Ending::deviceLost : Ending::deviceEnded;
    stop();
  }
  const bool full = m_options.seconds && elapsed() >= *m_options.seconds;
  if (full) stop();
  return full || drained;
}

void LiveRecording::endPlaying() {
  m_timer.reset();
  m_live->end();
  try {
    storeLive();
    hearsTake() ? beginWhole() : finishHeard();
  } catch (const std::exception& error) {
    fail(error);
  }
}

bool LiveRecording::hearsTake() const { return m_options.detection->ofSound && elapsed() > 0; }

/// The user may have deleted what is recorded into.
void LiveRecording::requireSongs() const {
  const QBSong* second = m_second ? m_second->song() : nullptr;
  if (m_made->song()->isDeleted() || (second && second->isDeleted()))
    throw platform::UserError(
        platform::phrase("Message", "the song was deleted while it was recorded"));
}

void LiveRecording::storeLive() {
  requireSongs();
  if (!hasTones(*m_made->song())) return;
  if (hearsTake()) m_made->song()->setUnheard(fs::absolute(m_sound->take().file()).string());
  buildTab(*m_made->song());
  m_db.context().save();
  m_made->keep();
  m_song = m_made->song();
}

void LiveRecording::beginWhole() {
  m_second = std::make_unique<TakeHearing>(*m_made, m_options.tuning);
  m_second->begin(m_options.detection->ofSound(m_sound->take().sound(), taskFor(m_second->song())));
  every(kWholeStepSeconds, &LiveRecording::hearWhole);
  enter(State::hearing);
}

void LiveRecording::hearWhole() {
  const platform::UndoStep part(m_undo);
  try {
    requireSongs();
    m_second->step();
    if (m_listeners.progress) m_listeners.progress(m_second->progress());
    if (m_state != State::hearing || !m_second->atEnd()) return;
    m_second->takePlace(*m_made, m_sound->take().file());
    if (!isHeardWhole()) return finishHeard();
    m_db.context().save();
    const SongRecording* recording = m_second->songInPlace()->recording();
    if (!recording) return finishHeard();
    m_keeping = keepingSound(*recording, m_sound->take().file());
    every(kWholeStepSeconds, &LiveRecording::keepMore);
    keepMore();
  } catch (const std::exception& error) {
    fail(error);
  }
}

void LiveRecording::cancel() {
  if (m_state == State::hearing) finish();
}

void LiveRecording::endNow() {
  stop();
  while (m_state == State::recording) hearLive();
  m_isLeft = m_state == State::hearing && !isHeardWhole();
  cancel();
}

void LiveRecording::finishHeard() {
  m_isHeard = true;
  finish();
}

void LiveRecording::fail(const std::exception& error) {
  m_problem = platform::textOf(error);
  finish();
}

void LiveRecording::finish() {
  m_timer.reset();
  if (isHeardWhole()) m_song = m_second->songInPlace();
  if (m_song && m_song->isDeleted()) m_song = nullptr;
  dropScratch();
  keepSound();
  m_takeStays = !m_options.keptTake.empty() || m_problem || m_isLeft || (!m_song && !m_isHeard);
  if (!m_takeStays) m_sound->take().removeFile();
  enter(State::over);
}

void LiveRecording::keepMore() {
  try {
    for (const platform::Deadline deadline; m_keeping.next();)
      if (deadline.isOver()) return;
  } catch (const std::exception& error) {
    return fail(error);
  }
  finishHeard();
}

/// What was played into the program is nowhere else. Where it cannot be kept the take stays; what
/// is not kept yet of one that is cut off is kept at once.
void LiveRecording::keepSound() {
  m_keeping = {};
  if (!m_song || !m_song->recording() || m_problem || m_isLeft) return;
  try {
    keepingSound(*m_song->recording(), m_sound->take().file()).finish();
  } catch (const platform::FileError& error) {
    m_problem = error.text();
  }
}

/// All that there is to hear in it was heard, or the user would rather have it as it is.
void LiveRecording::markWhole() {
  if (!m_song || m_song->isWhole()) return;
  m_song->clearUnheard();
  try {
    buildTab(*m_song);
    m_db.context().save();
  } catch (const std::exception& error) {
    m_problem = platform::textOf(error);
  }
}

/// What is left of the recording's changes is one action that can be undone.
void LiveRecording::dropScratch() {
  const platform::UndoStep part(std::exchange(m_undo, nullptr));
  if (!isHeardWhole()) m_second.reset();
  m_mark.reset();
  m_made.reset();
  if (!m_isLeft && !m_problem) markWhole();
}

void LiveRecording::enter(State state) {
  m_state = state;
  if (m_listeners.state) m_listeners.state(state);
}

bool LiveRecording::isHeardWhole() const { return m_second && m_second->songInPlace(); }

double LiveRecording::elapsed() const { return m_sound ? m_sound->take().seconds() : 0; }

float LiveRecording::level() const { return m_sound ? m_sound->take().level() : 0; }

std::int64_t LiveRecording::droppedBlocks() const {
  return m_sound ? m_sound->source()->nmbOfDroppedBlocks() : 0;
}

double LiveRecording::lostSeconds() const { return m_sound ? m_sound->lostSeconds() : 0; }

const std::optional<platform::UserText>& LiveRecording::takeProblem() const {
  static const std::optional<platform::UserText> none;
  return m_sound ? m_sound->take().problem() : none;
}

std::optional<fs::path> LiveRecording::takeLeft() const {
  return m_takeStays && m_sound ? std::optional(m_sound->take().file()) : std::nullopt;
}

}  // namespace korvel
