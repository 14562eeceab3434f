// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/QBCmdImportSong.h"

#include <stdexcept>

#include "analysis/QBChordAnalyserGame.h"
#include "audio/QBChordRecorder.h"
#include "audio/QBMediaTrack.h"
#include "model/QBAlbum.h"
#include "model/QBInstrument.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "workflow/QBAlbumNode.h"

namespace korvel {

QBCmdImportSong::QBCmdImportSong(std::shared_ptr<QBAlbumNode> album, std::string file,
                                 QBSong* newSong)
    : QBCmdAlbum(std::move(album)), m_file(std::move(file)), m_newSong(newSong) {
  m_type = "Song Import";
}

QBCmdImportSong::~QBCmdImportSong() = default;

void QBCmdImportSong::prepare() {
  QBTabMgr& db = QBTabMgr::db();
  printOut("(1/3) importing file .....");
  m_analyser = std::make_shared<QBChordAnalyserGame>(nullptr, db.selectedTuning());
  m_track = std::make_shared<QBMediaTrack>(m_file);
  m_analyser->setM_source(m_track);
  m_recorder = std::make_unique<QBChordRecorder>(m_analyser, db.selectedInstrument(), m_newSong,
                                                 m_source->album());
  m_recorder->startWithoutTimer("Test", 0.0F);
  printOut("(2/3) scanning chords .....");
}

void QBCmdImportSong::execute() {
  printOut(".. scanning chords.");
  while (!atEnd()) takeNextChord();
}

void QBCmdImportSong::nextStep() {
  if (atEnd())
    stop();
  else
    takeNextChord();
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
  m_track.reset();
}

bool QBCmdImportSong::atEnd() const { return !m_track || m_track->eof(); }

void QBCmdImportSong::takeNextChord() {
  m_recorder->nextChord();
  if (!m_listener || m_track->nmbOfBlocks() == 0) return;
  m_listener(static_cast<double>(m_track->nmbOfProcessedBlocks()) /
             static_cast<double>(m_track->nmbOfBlocks()));
}

}  // namespace korvel
