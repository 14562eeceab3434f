// SPDX-License-Identifier: GPL-3.0-or-later
#include "LongSong.h"

#include <random>

#include "arrange/chords/QBToneGroupBuilder.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "tab/text/SongDrawing.h"

namespace korvel::bench {
namespace {

constexpr const char* kGrips[] = {"022100", "002210", "320003", "032010", "133211", "000232"};
constexpr unsigned kChordsOfGrip = 8;
constexpr unsigned kFaultOneIn = 4;

void addChord(QBSong* song, const char* grip, std::mt19937& random) {
  QBChord* chord = song->createChord();
  chord->setDuration(1 + static_cast<int>(random() % 4));
  for (int string = 0; string < kStrings; ++string) {
    const bool fault = random() % kFaultOneIn == 0;
    const int fret = fault ? static_cast<int>(random() % 5) : grip[string] - '0';
    chord->hold()->addTone(string, fret, 1e5 * static_cast<double>(1 + random() % 50));
  }
  readHarmony(*chord);
  QBToneGroupBuilder(chord).build();
}

}  // namespace

QBSong* addLongSong(QBAlbum* album, const std::string& title, int chords) {
  QBTabMgr& db = QBTabMgr::db();
  QBSong* song = db.createSong(title, db.selectedTuning(), db.selectedInstrument(), album);
  std::mt19937 random(1);
  for (unsigned i = 0; i < static_cast<unsigned>(chords); ++i)
    addChord(song, kGrips[i / kChordsOfGrip % std::size(kGrips)], random);
  buildTab(*song);
  return song;
}

}  // namespace korvel::bench
