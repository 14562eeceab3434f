// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/PieceImports.h"

#include <QTimer>
#include <algorithm>
#include <chrono>

#include "exchange/Formats.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Translated.h"
#include "ui/library/TrackDialog.h"
#include "workflow/exchange/PieceTracks.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

/// Showing the song is a step of its own, after the events that wait already.
constexpr auto kTurnOfView = 1ms;

/// The one that would be taken is not the only one that somebody may want, or is none for a guitar.
bool isChoiceWanted(const exchange::Piece& piece) {
  const exchange::Track& usual = piece.tracks[chosenTrack(piece, {})];
  const auto isToPlay = [](const auto& track) { return !track.isDrums && !track.notes.empty(); };
  if (!isForSixStrings(usual)) return true;
  if (usual.isGuitar()) return countOfGuitars(piece) > 1;
  return std::ranges::count_if(piece.tracks, isToPlay) > 1;
}

}  // namespace

PieceImports::PieceImports(QWidget* window) : QObject(window), m_window(window) {}

bool PieceImports::takes(const QString& file) {
  return exchange::formatOfFile(file.toStdString()).has_value();
}

void PieceImports::begin(const QString& file, QBAlbum* into) {
  try {
    read(file, into);
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

void PieceImports::read(const QString& file, QBAlbum* into) {
  const std::string path = file.toStdString();
  exchange::Piece piece = exchange::readPiece(path);
  PieceChoices choices;
  if (into) choices.album = into->name();
  choices.fingering = Preferences().detectionSettings().fingering;
  if (std::ranges::any_of(piece.tracks, [](const auto& each) { return !each.notes.empty(); }) &&
      isChoiceWanted(piece)) {
    const bool isMidi = exchange::formatOfFile(path) == exchange::Format::midi;
    TrackDialog dialog(file, piece, isMidi, m_window);
    if (dialog.exec() != QDialog::Accepted) return;
    dialog.tell(choices);
  }
  run(std::make_shared<PieceImport>(path, std::move(piece), std::move(choices)), file);
}

/// One that cannot begin does not become a job.
void PieceImports::run(const std::shared_ptr<PieceImport>& job, const QString& file) {
  QBSession& session = QBSession::session();
  QBTabMgr::db().context().checkAhead();
  job->onFinished([this, file, done = job.get()] {
    const platform::Ref<QBSong> song = done->song();
    QTimer::singleShot(kTurnOfView, this, [this, file, song] { emit imported(file, song); });
  });
  session.addJob(job);
  try {
    job->runInBackground();
  } catch (...) {
    session.removeJob(*job);
    throw;
  }
  emit started(file);
}

}  // namespace korvel::ui
