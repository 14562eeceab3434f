// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEdits.h"

#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "tab/text/SongDrawing.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/TuningForNow.h"

namespace korvel {
namespace {

platform::UndoManager& undoManager() { return QBTabMgr::db().context().undoManager(); }

void redrawAndSave(QBSong& song) {
  const TuningForNow chosen(song.tuning());
  if (!song.chords().empty()) buildTab(song);
  QBTabMgr::db().save();
}

}  // namespace

void moveLoopEnd(QBSong& song, int chord) {
  const platform::UndoGroup group(undoManager(), "Set Loop");
  song.setChordInLoop(song.allChords().at(static_cast<std::size_t>(chord)));
  redrawAndSave(song);
}

void clearLoop(QBSong& song) {
  const platform::UndoGroup group(undoManager(), "Reset Loop");
  QBSession::session().resetLoop();
  redrawAndSave(song);
}

}  // namespace korvel
