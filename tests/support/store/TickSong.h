// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <string>

#include "platform/sound/SampleRate.h"
#include "support/store/StandardStore.h"

namespace korvel::test {

/// Appends bars of chords with ticks to a song, "|" between bars: "0x02xx:12 x:6 3xxxxx:6=18" are
/// two chords and a rest, the tones of the last one 18 ticks long. "/24" at the end is the length
/// of the lowest tone alone.
void addBars(QBSong* song, int beat, int beattype, const std::string& bars);

/// Says where the chords are played: the seconds of a tick by a function.
template <class SecondsOf>
void setBeatTimes(QBSong* song, int firstTick, const SecondsOf& secondsOf) {
  for (int tick = firstTick; const auto& chord : song->allChords()) {
    chord->setBeatTime(std::llround(secondsOf(tick) * platform::kSampleRate));
    tick += chord->ticks();
  }
}

}  // namespace korvel::test
