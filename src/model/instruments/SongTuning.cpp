// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/instruments/SongTuning.h"

#include "model/instruments/QBTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"

namespace korvel {

QBTuning* tuningOf(const QBSong* song) {
  if (song && song->tuning()) return song->tuning();
  return QBTabMgr::db().selectedTuning();
}

OpenStrings openStringsOf(const QBSong* song) {
  QBTuning* tuning = tuningOf(song);
  return tuning ? tuning->openStrings() : OpenStrings();
}

OpenStrings openStringsOf(const QBChord& chord) { return openStringsOf(chord.song()); }

OpenStrings openStringsOf(const QBHold& hold) {
  const QBChord* chord = hold.chord();
  return openStringsOf(chord ? chord->song() : nullptr);
}

OpenStrings openStringsOf(const QBTone& tone) {
  const QBHold* hold = tone.hold();
  return hold ? openStringsOf(*hold) : openStringsOf(static_cast<const QBSong*>(nullptr));
}

int capoOf(const QBSong& song) {
  if (song.hasCapo()) return song.capo();
  const SongRecording* recording = song.recording();
  return recording ? recording->capo() : 0;
}

}  // namespace korvel
