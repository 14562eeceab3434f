// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/QBRecorder.h"

#include "analysis/chords/QBChordAnalyser.h"
#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "audio/QBSampleSource.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/QBTabMatrix.h"

namespace korvel {
namespace {

constexpr double kStepSeconds = 0.05;
constexpr float kNoVolume = -100.0F;
constexpr const char* kScratchTitle = "Test";

}  // namespace

QBRecorder::QBRecorder(QBAlbum* album)
    : m_matrix(std::make_unique<QBTabMatrix>()), m_album(album) {}

QBRecorder::QBRecorder(std::shared_ptr<QBChordAnalyser> analyser, QBAlbum* album)
    : QBRecorder(album) {
  m_analyser = std::move(analyser);
  m_source = m_analyser->m_source();
}

QBRecorder::~QBRecorder() = default;

void QBRecorder::begin() {
  QBTabMgr& db = QBTabMgr::db();
  QBTuning* tuning = m_analyser ? m_analyser->m_tuning() : nullptr;
  m_song = db.createSong(kScratchTitle, tuning, db.selectedInstrument(), m_album);
  m_matrix = std::make_unique<QBTabMatrix>();
}

void QBRecorder::dropScratchSong() {
  const platform::Ref<QBSong> scratch = std::exchange(m_song, nullptr);
  if (m_album) m_album->deleteSong(scratch);
}

void QBRecorder::start(const std::string& /*title*/, float startTime) {
  if (m_timer) return;
  begin();
  m_timer = platform::RunLoop::main().scheduleRepeating(kStepSeconds, [this] { nextStep(); });
  if (m_source) m_source->startRecord(startTime);
}

void QBRecorder::stop() {
  if (!m_timer) return;
  m_timer.reset();
  if (m_source) m_source->stopRecord();
  dropScratchSong();
}

void QBRecorder::startWithoutTimer(const std::string& /*title*/, float startTime) {
  begin();
  if (m_source) m_source->startRecord(startTime);
}

void QBRecorder::stopWithoutTimer() {
  if (m_source) m_source->stopRecord();
  m_source.reset();
  dropScratchSong();
}

QBChord* QBRecorder::nextStep() {
  return m_song && m_analyser ? m_analyser->nextChord(m_song) : nullptr;
}

QBChord* QBRecorder::nextChord() { return nullptr; }

QBChord* QBRecorder::completed(QBChord* chord) {
  if (!chord) return nullptr;
  readHarmony(*chord);
  QBToneGroupBuilder(chord).build();
  return chord;
}

void QBRecorder::saveTo(const std::filesystem::path& path) const { m_matrix->saveToFile(path); }

void QBRecorder::setVolume(float) {}

float QBRecorder::getVolume() const { return kNoVolume; }

}  // namespace korvel
