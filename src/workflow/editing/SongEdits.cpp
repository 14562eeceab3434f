// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEdits.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"

namespace korvel {

void moveLoopEnd(QBSong& song, int chord) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  song.setChordInLoop(song.allChords().at(static_cast<std::size_t>(chord)));
  edit.redraw();
  edit.done();
}

void setLoop(QBSong& song, QBChord& first, QBChord& last) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  song.setFromChord(&first);
  song.setToChord(&last);
  edit.redraw();
  edit.done();
}

void clearLoop(QBSong& song) {
  Edit edit(song, platform::phrase("UndoAction", "Reset Loop"));
  QBSession::session().resetLoop(song);
  edit.redraw();
  edit.done();
}

}  // namespace korvel
