// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBCmdImportSong.h"

#include <stdexcept>

#include "analysis/QBChordAnalyserGame.h"
#include "analysis/QBChordAnalyserPrecise.h"
#include "audio/QBChordRecorder.h"
#include "audio/QBMediaTrack.h"
#include "audio/QBMonoTrack.h"
#include "audio/QBPreciseRecorder.h"
#include "model/QBAlbum.h"
#include "model/QBInstrument.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "workflow/QBAlbumNode.h"

namespace korvel {
namespace {

constexpr int kChordsOfStep = 100;

}  // namespace

QBCmdImportSong::QBCmdImportSong(std::shared_ptr<QBAlbumNode> album, std::string file,
                                 QBSong* newSong)
    : QBCmdAlbum(std::move(album)), m_file(std::move(file)), m_newSong(newSong) {
  m_type = "Song Import";
}

QBCmdImportSong::~QBCmdImportSong() = default;

void QBCmdImportSong::setDetection(ImportDetection detection, const precise::Settings& settings) {
  m_detection = detection;
  m_settings = settings;
}

void QBCmdImportSong::prepare() {
  printOut("(1/3) importing file .....");
  if (m_detection == ImportDetection::precise)
    hearPrecisely();
  else
    hearBlocks();
  m_recorder->startWithoutTimer("Test", 0.0F);
  printOut("(2/3) scanning chords .....");
}

void QBCmdImportSong::hearBlocks() {
  QBTabMgr& db = QBTabMgr::db();
  m_analyser = std::make_shared<QBChordAnalyserGame>(nullptr, db.selectedTuning());
  m_analyser->setM_source(std::make_shared<QBMediaTrack>(m_file));
  m_recorder = std::make_unique<QBChordRecorder>(m_analyser, db.selectedInstrument(), m_newSong,
                                                 m_source->album());
}

void QBCmdImportSong::hearPrecisely() {
  m_analyser = std::make_shared<QBChordAnalyserPrecise>(
      std::make_shared<QBMonoTrack>(m_file), QBTabMgr::db().selectedTuning(), m_settings);
  m_recorder = std::make_unique<QBPreciseRecorder>(m_analyser, m_newSong, m_source->album());
}

void QBCmdImportSong::execute() {
  printOut(".. scanning chords.");
  while (!atEnd()) takeNextChord();
}

void QBCmdImportSong::nextStep() {
  if (atEnd()) {
    stop();
    return;
  }
  // Chords of what was heard before cost next to nothing.
  const int most = m_detection == ImportDetection::precise ? kChordsOfStep : 1;
  for (int taken = 0; taken < most && takeNextChord(); ++taken) continue;
}

void QBCmdImportSong::tearDown() {
  m_recorder->stopWithoutTimer();
  printOut("(3/3) building tabulature .....");
  try {
    m_newSong->buildTab();
  } catch (const std::out_of_range&) {
    // Nothing was heard: a song without chords has no tablature, and the import ends all the same.
  }
  printOut("Song successfully imported.");
  // The job stays listed; its buffers need not.
  m_recorder.reset();
  m_analyser.reset();
}

bool QBCmdImportSong::atEnd() const { return !m_analyser || m_analyser->atEnd(); }

/// Whether there was one.
bool QBCmdImportSong::takeNextChord() {
  const bool taken = m_recorder->nextChord() != nullptr;
  if (m_listener) m_listener(m_analyser->progress());
  return taken;
}

}  // namespace korvel
