// SPDX-License-Identifier: GPL-3.0-or-later
// Fills a new store with songs that are hard to export: every metre, tunings, lengths and titles.
// Prints their titles, each followed by a zero byte. Usage: korvel-exchange-songs STORE
// Or writes so many random songs to files in a folder: korvel-exchange-songs FOLDER COUNT
#include <cstdlib>
#include <iostream>
#include <random>
#include <stdexcept>

#include "RandomSongs.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"
#include "workflow/arranging/MetreArrangements.h"
#include "workflow/session/StoreSeeding.h"

namespace {

using namespace korvel;

/// Chords, rests, fourteenth frets and tones of several lengths, the same at every run.
class SongMaker {
 public:
  explicit SongMaker(QBAlbum* album) : m_album(album) {}

  QBSong* song(const std::string& title, const char* tuning = "Standard") {
    QBTabMgr& db = QBTabMgr::db();
    for (const auto& each : db.tunings())
      if (each->descr() == tuning)
        return db.createSong(title, each, db.selectedInstrument(), m_album);
    throw std::invalid_argument(tuning);
  }

  QBSong* randomSong(const std::string& title, int chords, int restOneIn, int longest,
                     const char* tuning = "Standard") {
    QBSong* made = song(title, tuning);
    for (int i = 0; i < chords; ++i) {
      const bool rest = random(restOneIn) == 0;
      QBChord* chord = test::addChord(made, rest ? "" : grip(), rest ? 1 : 1 + random(longest));
      for (QBTone* tone : chord->hold()->tones()) {
        tone->setDuration(random(6));
        tone->setActive(random(12) != 0);
      }
      if (!chord->hold()->isEmpty()) readHarmony(*chord);
    }
    return made;
  }

 private:
  int random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }

  /// Frets of which each sounds higher than those on the lower strings, as in most chords.
  std::string grip() {
    constexpr int kOpen[] = {40, 45, 50, 55, 59, 64};
    std::string frets;
    int highest = 0;
    for (const int open : kOpen) {
      const int fret = random(16);
      const bool played = fret <= 12 && open + fret > highest;
      if (played) highest = open + fret;
      frets += played ? "0123456789abc"[fret] : 'x';
    }
    return frets.find_first_not_of('x') == std::string::npos ? "x02210" : frets;
  }

  QBAlbum* m_album;
  std::mt19937 m_random{7};
};

/// A chord of every declared type on every root, as far as six strings have them.
void addHarmonies(SongMaker& maker) {
  QBSong* song = maker.song("Every chord name");
  int root = 0;
  for (const auto& harmony : QBTabMgr::db().harmonies()) {
    QBChord* chord = test::addChord(song, "x32010", 2);
    chord->setHarmony(harmony);
    chord->setBaseTone(root++ * 5 % 12);
  }
}

void addMeasured(QBSong* song, int beats, int beattype) {
  applyMetric(*song, beats, beattype);
  song->requireAlbum().deleteSong(song);
}

/// Eight bars after a pick-up: straight values, triplets, a held bass, ties across the bar lines,
/// and lengths as edits leave them.
void addOnBeats(SongMaker& maker, const std::string& head, const std::string& pickUp,
                const std::string& two) {
  QBSong* song = maker.song("Beats in " + head.substr(0, head.find('/')));
  const std::string bars = two + " | ";
  test::beatSong(song, head + " tempo=100 " + pickUp + " | " + bars + bars + bars + bars);
}

void addSongs(QBAlbum* album) {
  SongMaker maker(album);
  maker.randomSong("Plain", 60, 4, 1);
  maker.randomSong("Long notes", 80, 5, 21);
  addMeasured(maker.randomSong("Bars", 60, 5, 14), 4, 4);
  addMeasured(maker.randomSong("Bars", 60, 5, 14), 3, 4);
  addMeasured(maker.randomSong("Bars", 60, 5, 14), 6, 8);
  addMeasured(maker.randomSong("Bars", 60, 5, 30), 12, 8);
  toPicking(*maker.randomSong("Picked", 90, 3, 1));
  maker.randomSong("Low", 30, 4, 4, "Drop D");
  QBSong* one = maker.song("One");
  test::addChord(one, "x02210", 1);
  test::addChord(maker.song("Silence"), "xxxxxx", 1);
  QBSong* high = maker.song("Two digits");
  for (const char* frets : {"aabbcc", "cxxxxx", "xcba12"}) test::addChord(high, frets, 3);
  QBSong* crossed = maker.song("Crossed strings");
  for (const char* frets : {"5x0xxx", "x50007", "c7xxxx", "x0xx50"})
    test::addChord(crossed, frets, 1);
  addOnBeats(maker, "4/4 key=4", "xxx2xx t6",
             "0xxxx0 t12_0t48 xxx2xx t4 xxxx1x t4 xxxx3x t4 xxxx0x t8 xxxx1x t8 xxx2xx t8 | x02210 "
             "t5 xx0232 t7 rt12 x02xxx t9 xxxxx3 t15=t21");
  addOnBeats(maker, "3/4 key=3", "xxx2xx t4",
             "3xxxx3 t12_0t36 xxxx0x t2 xxxx1x t2 xxxx3x t8 xxx2xx t12 | rt3 xxx0xx t9 xx0232 t1 "
             "xx2xxx t23=t26");
  addOnBeats(maker, "6/8 key=6", "xxx2xx t4 xxxx1x t4",
             "x0xxx0 t4_1t24 xxxx1x t4 xxx2xx t4 xxxx1x t8 xxx2xx t4 | x02210 t3 x02210 t9 rt5 "
             "xx0232 t7=t9");
  addHarmonies(maker);
  maker.randomSong("2,000 chords", 2000, 6, 4);
  maker.randomSong("Tom's <b>\"A & B\"</b> -- ]]> \\", 5, 9, 3);
  maker.randomSong("Bell\a, tab\t, line\nend\x7f", 5, 9, 3);
  maker.randomSong("Größe \u6771\u4eac \U0001F3B8", 5, 9, 3);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) return EXIT_FAILURE;
  try {
    if (argc == 3) {
      test::writeRandomSongs(argv[1], std::stoi(argv[2]));
      return EXIT_SUCCESS;
    }
    QBTabMgr::setStorePath(argv[1]);
    QBTabMgr& db = QBTabMgr::db();
    if (!db.isInitialized()) initializeData(db);
    QBAlbum* album = db.createAlbum("Exchange", false);
    addSongs(album);
    db.context().save();
    for (const QBSong* song : album->songs()) std::cout << song->title() << '\0';
    QBTabMgr::clearDb();
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return EXIT_FAILURE;
  }
}
