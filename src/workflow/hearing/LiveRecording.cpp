// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/LiveRecording.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <utility>

#include "analysis/chords/PreciseAnalyser.h"
#include "analysis/chords/QBChordAnalyserStandard.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/persistence/UndoManager.h"
#include "recording/LiveTake.h"
#include "recording/PreciseRecorder.h"
#include "recording/QBChordRecorder.h"
#include "recording/QBWaveIn.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/session/SongInWork.h"
#include "workflow/session/TuningForNow.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

constexpr double kStepSeconds = 0.01;
constexpr int kChordsOfStep = 100;

std::string dateAndTime(const char* format) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, format, &local)};
}

fs::path folderOfTakes() { return platform::userDataFolder("korvel") / "takes"; }

}  // namespace

/// Completes each chord as an import does, and tells of every step.
class LiveRecording::Recorder final : public QBChordRecorder {
 public:
  Recorder(LiveRecording& owner, QBSong* song, QBAlbum* album)
      : QBChordRecorder(owner.m_analyser, QBTabMgr::db().selectedInstrument(), song, album),
        m_owner(owner) {}

  QBChord* nextStep() override {
    const TuningForNow tuning(m_owner.m_tuning);
    const platform::UndoStep part(m_owner.m_undo);
    QBChord* chord = nullptr;
    try {
      m_owner.requireSongs();
      chord = completed(QBChordRecorder::nextStep());
    } catch (const std::exception& error) {
      m_owner.m_problem = error.what();
      m_owner.stop();
    }
    m_owner.stepped(chord);
    return chord;
  }

 private:
  LiveRecording& m_owner;
};

LiveRecording::LiveRecording(Options options) : m_options(std::move(options)) {}

LiveRecording::~LiveRecording() {
  const platform::UndoStep part(m_undo);
  if (m_state == State::recording) m_recorder->stop();
  if (m_state == State::hearing) dropPrecise();
  m_made.reset();
}

void LiveRecording::start() {
  m_undo = std::make_shared<platform::UndoGroup>(QBTabMgr::db().context().undoManager(), "Record");
  m_undo->suspend();
  const platform::UndoStep part(m_undo);
  try {
    make();
    m_recorder->start("", 0.0F);
  } catch (...) {
    if (m_recorder) m_recorder->stop();
    if (m_take) m_take->removeFile();
    m_made.reset();
    m_undo.reset();
    throw;
  }
  enter(State::recording);
}

void LiveRecording::make() {
  m_take = std::make_unique<LiveTake>(m_options.keptTake.empty() ? freeTake() : m_options.keptTake);
  m_made = std::make_unique<NewSong>(m_options.album,
                                     m_options.title.value_or(dateAndTime("%Y-%m-%d %H:%M:%S")));
  m_tuning = m_options.tuning;
  if (!m_tuning) m_tuning = QBTabMgr::db().selectedTuning();
  m_made->song()->setTuning(m_tuning);
  m_mark = std::make_unique<SongInWork>(m_made->song(), SongInWork::Filler::recording);
  connect();
  m_recorder = std::make_unique<Recorder>(*this, m_made->song(), m_made->album());
}

void LiveRecording::connect() {
  m_analyser = std::make_shared<QBChordAnalyserStandard>(nullptr, m_tuning);
  m_wave = std::make_shared<QBWaveIn>(m_analyser.get());
  m_analyser->setM_source(m_wave);
  m_wave->setDevice(m_options.device);
  m_wave->onBlock([this](const QBSampleBlock& block) {
    m_blockRead = true;
    m_take->add(block);
  });
}

void LiveRecording::stop() {
  if (m_state == State::recording) m_wave->stopRecord();
}

/// What still waits when the microphone has been stopped is heard step by step as before. Only a
/// step that began after its end can tell that nothing waits any more.
void LiveRecording::stepped(QBChord* chord) {
  if (m_state != State::recording) return;
  const QBAudioMicrophone& microphone = m_wave->m_microphone();
  const bool drained = !std::exchange(m_blockRead, false) && !microphone.isRunning();
  if (chord && !chord->hold()->isEmpty() && m_onChord) m_onChord(*chord);
  if (microphone.hasEnded()) {
    m_ending = microphone.isLost() ? Ending::deviceLost : Ending::deviceEnded;
    stop();
  }
  const bool full = m_options.seconds && elapsed() >= *m_options.seconds;
  if (full) stop();
  if (full || drained) endPlaying();
}

void LiveRecording::endPlaying() {
  m_recorder->stop();
  try {
    storeLive();
    const bool isMore = m_options.detection == ImportDetection::precise && elapsed() > 0;
    isMore ? hearPrecisely() : finishHeard();
  } catch (const std::exception& error) {
    fail(error);
  }
}

/// The user may have deleted what is recorded into.
void LiveRecording::requireSongs() const {
  const bool kept = !m_made->song()->isDeleted() && !(m_preciseSong && m_preciseSong->isDeleted());
  if (!kept) throw std::runtime_error("the song was deleted while it was recorded");
}

void LiveRecording::storeLive() {
  requireSongs();
  if (!hasTones(*m_made->song())) return;
  m_made->song()->buildTab();
  QBTabMgr::db().context().save();
  m_made->keep();
  m_song = m_made->song();
}

void LiveRecording::hearPrecisely() {
  QBAlbum* album = m_made->album();
  const std::string& title = m_made->song()->title();
  m_listening = std::make_shared<PreciseAnalyser>(m_take->sound(), m_tuning, m_options.settings);
  m_preciseSong = album->createSong(QBNameMgr(album, title).newName());
  m_preciseSong->setTuning(m_tuning);
  m_preciseRecorder = std::make_unique<PreciseRecorder>(m_listening, m_preciseSong, album);
  m_preciseRecorder->startWithoutTimer("", 0.0F);
  m_timer = platform::RunLoop::main().scheduleRepeating(kStepSeconds, [this] { hearNext(); });
  enter(State::hearing);
}

void LiveRecording::hearNext() {
  const TuningForNow tuning(m_tuning);
  const platform::UndoStep part(m_undo);
  try {
    requireSongs();
    // Chords of what was heard before cost next to nothing.
    for (int taken = 0; taken < kChordsOfStep && m_preciseRecorder->nextChord(); ++taken) continue;
    if (m_onProgress) m_onProgress(m_listening->progress());
    if (m_state != State::hearing || !m_listening->atEnd()) return;
    if (hasTones(*m_preciseSong)) replaceLive();
    finishHeard();
  } catch (const std::exception& error) {
    fail(error);
  }
}

/// In one saved change, so that the store always has one of the two songs whole. When saving fails,
/// the exchange is still to be saved.
void LiveRecording::replaceLive() {
  m_preciseRecorder->stopWithoutTimer();
  m_preciseSong->setTitle(m_made->song()->title());
  m_preciseSong->buildTab();
  m_made->keep();
  m_made->album()->deleteSong(m_made->song());
  m_song = std::exchange(m_preciseSong, nullptr);
  m_isPrecise = true;
  QBTabMgr::db().context().save();
}

void LiveRecording::dropPrecise() {
  m_timer.reset();
  if (m_preciseRecorder) m_preciseRecorder->stopWithoutTimer();
  m_made->album()->deleteSong(std::exchange(m_preciseSong, nullptr));
}

void LiveRecording::cancel() {
  if (m_state == State::hearing) finish();
}

void LiveRecording::endNow() {
  stop();
  while (m_state == State::recording) m_recorder->nextStep();
  cancel();
}

void LiveRecording::finishHeard() {
  m_isHeard = true;
  finish();
}

void LiveRecording::fail(const std::exception& error) {
  m_problem = error.what();
  finish();
}

void LiveRecording::finish() {
  dropScratch();
  if (m_song && m_song->isDeleted()) m_song = nullptr;
  m_takeStays = !m_options.keptTake.empty() || m_problem || (!m_song && !m_isHeard);
  if (!m_takeStays) m_take->removeFile();
  enter(State::over);
}

/// What is left is an action that can be undone.
void LiveRecording::dropScratch() {
  const platform::UndoStep part(std::exchange(m_undo, nullptr));
  dropPrecise();
  m_mark.reset();
  m_made.reset();
}

void LiveRecording::enter(State state) {
  m_state = state;
  if (m_onState) m_onState(state);
}

double LiveRecording::elapsed() const { return m_take ? m_take->seconds() : 0; }

float LiveRecording::level() const { return m_take ? m_take->level() : 0; }

std::int64_t LiveRecording::droppedBlocks() const {
  return m_wave ? m_wave->nmbOfDroppedBlocks() : 0;
}

/// Blocks after the last one that was read leave no gap.
double LiveRecording::lostSeconds() const {
  if (!m_wave) return 0;
  const double dropped = static_cast<double>(droppedBlocks()) * QBAudioMicrophone::kPackets /
                         platform::kLiveSound.sampleRate;
  return std::max(m_take->lostSeconds(), dropped);
}

const std::optional<std::string>& LiveRecording::takeProblem() const {
  static const std::optional<std::string> none;
  return m_take ? m_take->problem() : none;
}

std::optional<fs::path> LiveRecording::takeLeft() const {
  return m_takeStays && m_take ? std::optional(m_take->file()) : std::nullopt;
}

fs::path LiveRecording::freeTake() {
  return LiveTake::freeFile(folderOfTakes(), dateAndTime("%Y-%m-%d %H-%M-%S"));
}

std::vector<fs::path> LiveRecording::takesLeftBehind() { return LiveTake::leftIn(folderOfTakes()); }

}  // namespace korvel
