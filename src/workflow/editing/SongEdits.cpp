// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/SongEdits.h"

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

QBChord& chordAt(QBSong& song, int chord) {
  return *song.allChords().at(static_cast<std::size_t>(chord));
}

void takeInBars(QBSong& song) {
  const QBChord* first = song.fromChord();
  if (first && first->measure()) song.setFromChord(first->measure()->allChords().front());
  const QBChord* last = song.toChord();
  if (last && last->measure()) song.setToChord(last->measure()->allChords().back());
}

}  // namespace

void moveLoopEnd(QBSong& song, int chord, LoopEnds ends) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  edit.joinAlike();
  song.setChordInLoop(&chordAt(song, chord));
  if (ends == LoopEnds::atBars) takeInBars(song);
  edit.redraw();
  edit.save();
}

void beginLoop(QBSong& song, int chord, LoopEnds ends) {
  QBChord& first = chordAt(song, chord);
  QBChord* last = song.toChord();
  setLoop(song, first,
          last && last->position() >= first.position() ? *last : *song.allChords().back(), ends);
}

void endLoop(QBSong& song, int chord, LoopEnds ends) {
  QBChord& last = chordAt(song, chord);
  QBChord* first = song.fromChord();
  setLoop(song, first && first->position() <= last.position() ? *first : *song.allChords().front(),
          last, ends);
}

void setLoop(QBSong& song, QBChord& first, QBChord& last, LoopEnds ends) {
  Edit edit(song, platform::phrase("UndoAction", "Set Loop"));
  edit.joinAlike();
  song.setFromChord(&first);
  song.setToChord(&last);
  if (ends == LoopEnds::atBars) takeInBars(song);
  edit.redraw();
  edit.save();
}

void setLoop(QBSong& song, int first, int last, LoopEnds ends) {
  setLoop(song, chordAt(song, first), chordAt(song, last), ends);
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
