// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/Formats.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/SongTime.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/songs/WordsOfSong.h"
#include "support/store/StandardStore.h"
#include "workflow/exchange/PieceImport.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::test {
namespace {

/// What all programs understand of a song: its head, bars, and what is struck when, with names.
std::string musicOf(QBSong& song) {
  std::ostringstream text;
  text << "key " << song.key() << " capo " << song.capo() << " tempo " << song.tempo() << " on";
  const OpenPitches open = openStringsOf(&song).pitches();
  for (const int pitch : open) text << ' ' << pitch;
  for (const auto& bar : song.allMeasures()) text << " |" << bar->beat() << '/' << bar->beattype();
  const SongTime time(song, SongTime::Tempo::strict);
  std::string name;
  for (std::size_t i = 0; i < song.allChords().size(); ++i) {
    const QBChord& chord = *song.allChords()[i];
    if (chord.hold()->isEmpty()) continue;
    text << '\n' << time.tickOf(i) << ' ' << fretsOf(chord);
    if (chord.harmony() && chord.fullHarmonyName() != name)
      text << ' ' << (name = chord.fullHarmonyName());
  }
  return text.str();
}

QBSong* randomSong(const StandardStore& store, unsigned seed) {
  WordsOfSong words(seed);
  QBSong* song = store.song("Song");
  song->setTuning(addTuning("Another one", words.tuning()));
  beatSong(song, words.words());
  song->setKey(static_cast<int>(seed % 24));
  song->setCapo(words.capo());
  return song;
}

TEST(SongRoundTripTest, songsComeBackFromTheFilesOfOtherPrograms) {
  for (unsigned seed = 8; seed < 20 && !HasFailure(); ++seed) {
    const StandardStore store;
    const RecordingViews views;
    QBSong* song = randomSong(store, seed);
    QBTabMgr::db().loadHarmonies();
    for (const SongFormat format :
         {SongFormat::musicXml, SongFormat::compressedMusicXml, SongFormat::guitarPro7}) {
      const std::string file = store.folder().file("Song" + std::string(extensionOf(format)));
      exportSong(*song, format, file);
      PieceImport import(file, exchange::readPiece(file), {.manner = PieceManner::asWritten});
      import.run();
      EXPECT_EQ(musicOf(*import.song()), musicOf(*song)) << seed << ' ' << file;
    }
  }
}

}  // namespace
}  // namespace korvel::test
