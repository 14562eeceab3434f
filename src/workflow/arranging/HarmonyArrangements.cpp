// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/HarmonyArrangements.h"

#include "arrange/harmony/QBChordCleaner.h"
#include "arrange/harmony/QBChordTransposer.h"
#include "model/instruments/QBInstrument.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/ArrangedSong.h"

namespace korvel {

QBSong* cleanChords(QBSong& song, const std::string& title) {
  QBSong* cleaned = QBChordCleaner::clean(song);
  cleaned->setAlbum(&song.requireAlbum());
  return finished(cleaned, title);
}

QBSong* transposed(QBSong& song, int halfTones, const std::string& title) {
  QBTabMgr& db = QBTabMgr::of(song);
  QBInstrument* instrument = db.selectedInstrument();
  QBSong* made = db.createSong(title, song.tuning(), instrument, &song.requireAlbum());
  for (const auto& chord : song.allChords()) {
    QBChordTransposer transposer(chord, instrument, 0, halfTones);
    transposer.transpose()->clone(made);
    transposer.dispose();
  }
  if (song.isOnBeats()) made->takeRhythmOf(song);
  moveKey(*made, halfTones);
  buildTab(*made);
  return made;
}

}  // namespace korvel
