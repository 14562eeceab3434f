// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEdits.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

QBChord& chordAt(QBSong& song, int chord) {
  return *song.allChords().at(static_cast<std::size_t>(chord));
}

}  // namespace

void moveLoopEnd(QBSong& song, int chord) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  edit.joinAlike();
  song.setChordInLoop(&chordAt(song, chord));
  edit.redraw();
  edit.save();
}

void beginLoop(QBSong& song, int chord) {
  QBChord& first = chordAt(song, chord);
  QBChord* last = song.toChord();
  setLoop(song, first,
          last && last->position() >= first.position() ? *last : *song.allChords().back());
}

void endLoop(QBSong& song, int chord) {
  QBChord& last = chordAt(song, chord);
  QBChord* first = song.fromChord();
  setLoop(song, first && first->position() <= last.position() ? *first : *song.allChords().front(),
          last);
}

void setLoop(QBSong& song, QBChord& first, QBChord& last) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  edit.joinAlike();
  song.setFromChord(&first);
  song.setToChord(&last);
  edit.redraw();
  edit.save();
}

void setLoop(QBSong& song, int first, int last) {
  setLoop(song, chordAt(song, first), chordAt(song, last));
}

void clearLoop(QBSong& song) {
  Edit edit(song, platform::phrase("UndoAction", "Reset Loop"));
  edit.joinAlike();
  song.setFromChord(nullptr);
  song.setToChord(nullptr);
  edit.redraw();
  edit.save();
  edit.session().showLoop();
}

}  // namespace korvel
