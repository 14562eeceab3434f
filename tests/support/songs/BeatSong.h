// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <string>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "platform/sound/SampleRate.h"

namespace korvel::test {

/// Makes an empty song one on beats, from words such as
///
///     "tempo=96 key=5 swing=0.67 3/4 rq | Am:x02210 q e e_1h | ~q G:320003 e3 e3 e3 x5xxxx q |"
///
///     tempo=120 key=  the song's; without a tempo it has 120
///     3/4             time signature from the next bar line on, 4/4 until there is one
///     |               the bar ends, full or not
///     Am:x02210       what the next lengths strike, as `addChord` takes it; the name, as well for
///                     what follows, may be missing, and is none before ":" alone
///     q q. e3 s       strikes that for a quarter, a dotted one, an eighth of a triplet, a
///                     sixteenth; w and h are whole and half notes
///     e_1h.           strikes it for an eighth, its tone on string 1 for a dotted half
///     t5 t15=t21      the same for so many twelfths of a beat, here all tones for 21
///     rq              a rest, unless a tone goes on
///     ~q              a chord without tones, through which those that end here ring on
///
/// std::invalid_argument for other words.
QBSong* beatSong(QBSong* song, const std::string& written);

/// Says where the chords are played: the seconds of a tick by a function.
template <class SecondsOf>
void setBeatTimes(QBSong* song, int firstTick, const SecondsOf& secondsOf) {
  for (int tick = firstTick; const auto& chord : song->allChords()) {
    chord->setBeatTime(std::llround(secondsOf(tick) * platform::kSampleRate));
    tick += chord->ticks();
  }
}

}  // namespace korvel::test
