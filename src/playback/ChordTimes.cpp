// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/ChordTimes.h"

#include "model/songs/QBSong.h"
#include "playback/BeatTimes.h"
#include "playback/StepTimes.h"

namespace korvel {

std::unique_ptr<ChordTimes> ChordTimes::of(QBSong& song, SongTime::Tempo tempo) {
  if (song.isOnBeats()) return std::make_unique<BeatTimes>(song, tempo);
  return std::make_unique<StepTimes>(song);
}

double beatsPerMinuteOf(QBSong& song) {
  return song.isOnBeats() ? SongTime(song, SongTime::Tempo::strict).beatsPerMinuteAt(0) : 0;
}

}  // namespace korvel
