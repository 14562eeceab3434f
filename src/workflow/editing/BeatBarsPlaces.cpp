// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"
#include "workflow/editing/BeatBars.h"
#include "workflow/editing/ChordTicks.h"

namespace korvel {
namespace {

constexpr int kThirdOfBeat = kTicksOfBeat / 3;
constexpr double kTempoOfNone = 120;

}  // namespace

std::size_t BeatBars::beginOfBar(std::size_t chord) const {
  while (chord > 0 && areInOneBar(chord - 1, chord)) --chord;
  return chord;
}

std::size_t BeatBars::endOfBar(std::size_t chord) const {
  while (isFollowedInBar(chord)) ++chord;
  return chord + 1;
}

bool BeatBars::areInOneBar(std::size_t chord, std::size_t other) const {
  return at(chord).measure() == at(other).measure();
}

bool BeatBars::isFollowedInBar(std::size_t chord) const {
  return chord + 1 < m_chords.size() && areInOneBar(chord, chord + 1);
}

bool BeatBars::isRestBehind(std::size_t chord) const {
  return isFollowedInBar(chord) && isToneless(at(chord + 1));
}

int BeatBars::ticksOf(std::size_t first, std::size_t end) const {
  int sum = 0;
  for (std::size_t chord = first; chord < end; ++chord) sum += at(chord).ticks();
  return sum;
}

/// Until something is struck again.
int BeatBars::runOf(std::size_t chord) const {
  std::size_t end = chord + 1;
  while (end < m_chords.size() && isToneless(at(end))) ++end;
  return ticksOf(chord, end);
}

int BeatBars::ticksOfSixteenthAt(std::size_t chord) const {
  return ticksOfSixteenth(isInCompoundTime(at(chord)));
}

int BeatBars::writtenTicks(std::size_t chord) const {
  const QBChord& written = at(chord);
  if (isToneless(written)) return written.ticks();
  int shortest = runOf(chord);
  for (const QBTone* tone : written.hold()->tones())
    shortest = std::min(shortest, ticksOfTone(*tone, written));
  return std::max(shortest, written.ticks());
}

/// In whole sixteenths where the chord has whole ones.
int BeatBars::halfOf(std::size_t chord) const {
  const int unit = ticksOfSixteenthAt(chord);
  const int ticks = at(chord).ticks();
  const int half = ticks / 2;
  if (half % unit == 0 || ticks % unit != 0) return half;
  return (ticks / unit + 1) / 2 * unit;
}

/// A first bar that is not full ends with a bar line all the same.
int BeatBars::placeInBar(std::size_t chord) const {
  const std::size_t begin = beginOfBar(chord);
  const QBMeasure& measure = *at(chord).measure();
  const int room = ticksOfBar(measure.beat(), measure.beattype());
  const int missing = begin == 0 ? std::max(room - ticksOf(begin, endOfBar(chord)), 0) : 0;
  return missing + ticksOf(begin, chord);
}

int BeatBars::stepOf(std::size_t chord) const {
  const int unit = ticksOfSixteenthAt(chord);
  if (isInCompoundTime(at(chord))) return unit;
  const bool isThird = placeInBar(chord) % unit != 0 || at(chord).ticks() % unit != 0;
  return isThird ? kThirdOfBeat : unit;
}

double BeatBars::samplesOfTick(std::size_t chord) const {
  const QBChord& here = at(chord);
  if (here.hasBeatTime() && chord + 1 < m_chords.size() && at(chord + 1).hasBeatTime()) {
    const auto samples = static_cast<double>(at(chord + 1).beatTime() - here.beatTime());
    if (samples > 0 && here.ticks() > 0) return samples / here.ticks();
  }
  const double tempo = m_song.tempo() > 0 ? m_song.tempo() : kTempoOfNone;
  return 60 / tempo * platform::kSampleRate / kTicksOfBeat;
}

/// When a place behind the beginning of a chord comes; none when the chord was not heard.
BeatBars::Time BeatBars::timeAt(std::size_t chord, int ticks) const {
  if (!at(chord).hasBeatTime()) return {};
  return at(chord).beatTime() + std::llround(ticks * samplesOfTick(chord));
}

}  // namespace korvel
