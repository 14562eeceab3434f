// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "export/score/BeatMusic.h"
#include "model/songs/SongLyrics.h"
#include "model/songs/SongTime.h"

namespace korvel {

class QBSong;

/// What a song on beats is written from, whether a store has it or it was only just heard. The
/// lengths of tones are in ticks here.
struct BeatSheet {
  /// A tone as it sounds; one of 0 ticks lasts as long as its chord.
  struct Played {
    int pitch = 0;
    int ticks = 0;
  };
  struct Chord {
    std::vector<BeatTone> tones{};          ///< As a score has them, one on each string.
    std::vector<Played> played{};           ///< All that sound.
    std::optional<ScoreHarmony> harmony{};  ///< Repeated by all chords that it counts for.
  };

  TimedChords time{};
  double rate = 1;  ///< How many times as fast as that it is to be played.
  std::optional<ScoreKey> key{};
  std::vector<Meter> meters{};  ///< Of its bars; the first one is that of a pick-up, too.
  std::vector<Chord> chords{};  ///< As many as have their time.
  std::vector<SungWords> words{};
};

/// open: what the strings sound.
BeatSheet sheetOf(QBSong& song, const std::vector<int>& open);

}  // namespace korvel
