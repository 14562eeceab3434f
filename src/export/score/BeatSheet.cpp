// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/BeatSheet.h"

#include "export/score/ChordReading.h"
#include "export/score/SongScore.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"

namespace korvel {
namespace {

BeatSheet::Chord sheetChordOf(const QBChord& chord, const std::vector<int>& open) {
  BeatSheet::Chord made{tonesOf(chord, open), {}, harmonyOf(chord)};
  for (const QBTone* tone : playedTones(chord))
    made.played.push_back({pitchOf(*tone, open), tone->ticks()});
  return made;
}

}  // namespace

BeatSheet sheetOf(QBSong& song, const std::vector<int>& open) {
  BeatSheet sheet{timedChordsOf(song), rateOf(song)};
  if (song.hasKey()) sheet.key = keyOf(song);
  for (const auto& measure : song.allMeasures()) sheet.meters.push_back(meterOf(*measure));
  for (const auto& chord : song.allChords()) sheet.chords.push_back(sheetChordOf(*chord, open));
  sheet.words = lyricsOf(song);
  return sheet;
}

}  // namespace korvel
