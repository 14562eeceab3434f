// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/ChordTicks.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBTone.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

void stretchTones(QBChord& chord, int by) {
  if (isToneless(chord)) return;
  for (QBTone* tone : chord.hold()->tones())
    if (ticksOfTone(*tone, chord) == chord.ticks()) tone->setTicks(std::max(chord.ticks() + by, 1));
}

}  // namespace

bool isToneless(const QBChord& chord) { return !chord.hold() || chord.hold()->tones().empty(); }

int ticksOfTone(const QBTone& tone, const QBChord& chord) {
  return tone.hasTicks() ? tone.ticks() : chord.ticks();
}

void changeTicks(QBChord& chord, int by) {
  stretchTones(chord, by);
  chord.setTicks(chord.ticks() + by);
}

void setToneTicks(QBChord& chord, int before, int ticks) {
  if (isToneless(chord)) return;
  int longest = 0;
  for (const QBTone* tone : chord.hold()->tones())
    if (const int own = ticksOfTone(*tone, chord); own <= before) longest = std::max(longest, own);
  for (QBTone* tone : chord.hold()->tones()) {
    const int own = ticksOfTone(*tone, chord);
    const bool follows = own == longest || (longest == 0 && ticks < before);
    if (follows)
      tone->setTicks(ticks);
    else
      tone->setTicks(own < before ? std::min(own, ticks) : std::max(own, ticks));
  }
}

void moveInTime(QBChord& chord, double samples) {
  const auto by = static_cast<std::int64_t>(std::llround(samples));
  if (!chord.hasBeatTime()) return;
  chord.setBeatTime(std::max<std::int64_t>(chord.beatTime() + by, 0));
  chord.setTimestamp(std::max<std::int64_t>(chord.timestamp() + by, 0));
}

bool isInCompoundTime(const QBChord& chord) {
  const QBMeasure* measure = chord.measure();
  return measure && isCompound(measure->beat(), measure->beattype());
}

}  // namespace korvel
