// SPDX-License-Identifier: GPL-3.0-or-later
// Saves one song of 300 chords after the other until it is killed: the victim of KillTest.
#include <cstdlib>

#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBHold.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "model/QBTone.h"

int main(int argc, char** argv) {
  using namespace korvel;
  if (argc != 2) return EXIT_FAILURE;
  QBTabMgr::setStorePath(argv[1]);
  QBTabMgr& db = QBTabMgr::db();
  QBAlbum* album = db.createAlbum("Saved", false);
  for (int number = 0;; ++number) {
    QBSong* song = album->createSong(std::to_string(number));
    for (int chord = 0; chord < 300; ++chord) {
      QBHold* hold = song->createChord()->hold();
      for (int string = 0; string < 6; ++string) hold->addTone(string, chord % 12, 1.0);
    }
    if (!db.save()) return EXIT_FAILURE;
  }
}
