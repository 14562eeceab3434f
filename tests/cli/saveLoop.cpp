// SPDX-License-Identifier: GPL-3.0-or-later
// The victim of KillTest, at work until it is killed: changes a song of 300 chords in place, saves
// each change, and takes some back.
#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/SongDrawing.h"
#include "workflow/editing/SongEditor.h"

namespace {

using namespace korvel;

constexpr int kChords = 300;

QBSong* addSong(QBAlbum* album, const std::string& title) {
  QBSong* song = album->createSong(title);
  for (int chord = 0; chord < kChords; ++chord) {
    QBHold* hold = song->createChord()->hold();
    for (int string = 0; string < 6; ++string) hold->addTone(string, chord % 12, 1.0);
  }
  return song;
}

QBSong* songToEdit() {
  QBTabMgr& db = QBTabMgr::db();
  if (QBAlbum* known = db.findAlbumByName("Edited")) return known->findSongByName("Song");
  QBSong* song = addSong(db.createAlbum("Edited", false), "Song");
  buildTab(*song);
  db.save();
  return song;
}

void editSong() {
  QBSong& song = *songToEdit();
  SongEditor editor(QBTabMgr::db(), song);
  std::mt19937 random(std::random_device{}());
  const auto count = [&] { return static_cast<int>(song.chords().size()); };
  const auto chord = [&] { return static_cast<int>(random() % song.chords().size()); };
  for (int number = 0;; ++number) {
    editor.setFret(chord(), number % 6, number % 25);
    const int at = chord();
    editor.deleteChords(at, std::min(at + 2, count() - 1));
    QBTabMgr::db().undo();
    editor.insertChordAfter(at);
    editor.deleteChord(at);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return EXIT_FAILURE;
  QBTabMgr::setStorePath(argv[1]);
  editSong();
}
