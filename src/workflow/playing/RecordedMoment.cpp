// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/playing/RecordedMoment.h"

#include <algorithm>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "playback/ChordTimes.h"

namespace korvel {

std::optional<RecordedMoment> momentOf(QBSong& song, int chord) {
  const auto& chords = song.allChords();
  if (chord < 0 || chord >= static_cast<int>(chords.size())) return {};
  const QBChord& at = *chords[static_cast<std::size_t>(chord)];
  const auto times = ChordTimes::of(song, SongTime::Tempo::asRecorded);
  const auto second = times->recordedSecondsAt(times->goTo(at));
  if (!second) return {};
  RecordedMoment moment{*second, times->end() - times->placeOf(0)};
  if (const QBHold* hold = at.hold())
    for (const QBTone* tone : hold->tones())
      if (tone->isActive()) moment.seconds = std::max(moment.seconds, times->lengthOf(*tone));
  return moment;
}

}  // namespace korvel
