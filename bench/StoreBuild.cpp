// SPDX-License-Identifier: GPL-3.0-or-later
// Builds a store of many long songs, for measuring how it opens. The last song, "Undrawn", has no
// tablature yet, so that showing it takes all its chords.
#include <cstdlib>
#include <iostream>
#include <string>

#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "tab/text/SongDrawing.h"
#include "workflow/session/StoreSeeding.h"

namespace {

using namespace korvel;

constexpr int kAlbums = 50;
constexpr int kSongsOfAlbum = 20;
constexpr int kChords = 650;

QBSong* addSong(QBAlbum* album, const std::string& title) {
  QBTabMgr& db = QBTabMgr::db();
  QBSong* song = db.createSong(title, db.selectedTuning(), nullptr, album);
  for (int i = 0; i < kChords; ++i) {
    QBChord* chord = db.createChord(song, nullptr, 0);
    for (int string = 0; string < kStrings; ++string)
      db.createTone(chord->hold(), string, (i * 7 + string * 3) % 5, 0, 1e6 + i * string);
  }
  return song;
}

void addAlbum(int number) {
  const std::string name = std::to_string(number);
  QBAlbum* album = QBTabMgr::db().createAlbum("Album " + name, false);
  for (int i = 0; i < kSongsOfAlbum; ++i) {
    const bool undrawn = number == kAlbums && i == kSongsOfAlbum - 1;
    QBSong* song = addSong(album, undrawn ? "Undrawn" : "Song " + name + "." + std::to_string(i));
    if (!undrawn) buildTab(*song);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: korvel-store-build FILE\n";
    return EXIT_FAILURE;
  }
  QBTabMgr::setStorePath(argv[1]);
  if (!QBTabMgr::db().isInitialized()) initializeData(QBTabMgr::db());
  for (int number = 1; number <= kAlbums; ++number) {
    addAlbum(number);
    QBTabMgr::db().save();
    QBTabMgr::clearDb();
  }
  return EXIT_SUCCESS;
}
