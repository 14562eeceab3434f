// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/ArrangedSong.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "music/Pitch.h"
#include "tab/text/SongDrawing.h"

namespace korvel {

QBSong* filtered(QBSong& source, const std::string& title, QBChordVisitor&& visitor) {
  QBSong* copy = source.clone();
  copy->setTitle(title);
  copy->iterate(visitor);
  buildTab(*copy);
  return copy;
}

QBSong* emptyBeside(const QBSong& source, const std::string& title) {
  QBSong* made = source.requireAlbum().createSong(title);
  made->setTuning(source.tuning());  // its strings are the source's, not the instrument's
  if (source.isOnBeats()) made->takeRhythmOf(source);
  return made;
}

QBSong* filled(QBSong* made, QBSong& source, QBChordVisitor&& visitor) {
  source.iterate(visitor);
  buildTab(*made);
  return made;
}

QBSong* finished(QBSong* song, const std::string& title) {
  song->setTitle(title);
  buildTab(*song);
  return song;
}

void moveKey(QBSong& song, int halfTones) {
  if (!song.hasKey()) return;
  const int mode = song.key() - pitchClass(song.key());
  song.setKey(mode + pitchClass(song.key() + halfTones));
}

bool sounds(const QBSong& song) {
  for (const QBChord* chord : song.chords())
    if (chord->hold() && !chord->hold()->isEmpty()) return true;
  return false;
}

QBNameMgr nameOf(const QBSong& song) { return {&song.requireAlbum(), song.title()}; }

}  // namespace korvel
