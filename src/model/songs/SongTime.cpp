// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/songs/SongTime.h"

#include <algorithm>
#include <cmath>

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

constexpr double kTempoOfNone = 120;
constexpr double kSlowest = 10;
constexpr double kFastest = 1000;
constexpr double kSecondsOfMinute = 60;
constexpr double kHalfBeat = kTicksOfBeat / 2.0;

/// How much of the song lies before the first bar line.
int ticksOfPickUp(QBSong& song) {
  const auto measures = song.allMeasures();
  if (measures.size() < 2) return 0;
  int sum = 0;
  for (const QBChord* chord : measures.front()->chords()) sum += chord->ticks();
  const QBMeasure& first = *measures.front();
  return sum < ticksOfBar(first.beat(), first.beattype()) ? sum : 0;
}

double secondsOfBeat(double tempo) { return kSecondsOfMinute / tempo; }

/// Whether a map through both points keeps a pace that music has.
bool isPace(double ticks, double seconds) {
  const double tempo = secondsOfBeat(seconds / (ticks / kTicksOfBeat));
  return seconds > 0 && tempo > kSlowest && tempo < kFastest;
}

}  // namespace

TimedChords timedChordsOf(QBSong& song) {
  TimedChords timed{song.tempo(), {}, ticksOfPickUp(song)};
  if (song.isSwung()) timed.swing = song.swing();
  for (const auto& chord : song.allChords()) {
    timed.chords.push_back({chord->ticks()});
    if (chord->hasBeatTime()) timed.chords.back().beatTime = chord->beatTime();
  }
  return timed;
}

SongTime::SongTime(QBSong& song, Tempo tempo) : SongTime(timedChordsOf(song), tempo) {}

SongTime::SongTime(const TimedChords& song, Tempo tempo)
    : m_tempo(song.tempo > 0 ? std::clamp(song.tempo, kSlowest, kFastest) : kTempoOfNone),
      m_swing(std::clamp(song.swing.value_or(QBSong::kStraight), QBSong::kStraight, 0.9)) {
  layOut(song);
  if (tempo == Tempo::asRecorded) followBeats(song);
}

void SongTime::layOut(const TimedChords& song) {
  int tick = -song.pickUp;
  for (const TimedChords::Chord& chord : song.chords) {
    m_ticks.push_back(tick);
    tick += std::max(chord.ticks, 0);
  }
  m_ticks.push_back(tick);
}

void SongTime::followBeats(const TimedChords& song) {
  for (std::size_t i = 0; i < song.chords.size(); ++i) {
    if (!song.chords[i].beatTime) continue;
    const Point point{static_cast<double>(m_ticks[i]),
                      static_cast<double>(*song.chords[i].beatTime) / platform::kSampleRate};
    if (m_points.empty() || point.tick > m_points.back().tick) {
      if (!m_points.empty() &&
          !isPace(point.tick - m_points.back().tick, point.seconds - m_points.back().seconds))
        return m_points.clear();
      m_points.push_back(point);
    }
  }
  if (m_points.size() < 2) m_points.clear();
}

std::size_t SongTime::chordAt(double tick) const {
  if (m_ticks.size() < 2) return 0;
  const auto after = std::upper_bound(m_ticks.begin(), m_ticks.end() - 1, tick);
  return static_cast<std::size_t>(std::max<std::ptrdiff_t>(after - m_ticks.begin() - 1, 0));
}

double SongTime::secondsOf(double tick) const { return straightSecondsOf(swung(tick)); }

double SongTime::tickOfSeconds(double seconds) const { return unswung(straightTickOf(seconds)); }

double SongTime::beatsPerMinuteAt(double tick) const {
  const double beat = std::floor(tick / kTicksOfBeat) * kTicksOfBeat;
  return secondsOfBeat(straightSecondsOf(beat + kTicksOfBeat) - straightSecondsOf(beat));
}

/// The point that the stretch begins with which a value lies in; the first or the last stretch for
/// what lies outside.
const SongTime::Point* SongTime::pointBefore(double value, double Point::*field) const {
  const auto after = std::ranges::upper_bound(m_points, value, {}, field);
  const auto index =
      std::clamp<std::ptrdiff_t>(after - m_points.begin() - 1, 0, std::ssize(m_points) - 2);
  return &m_points[static_cast<std::size_t>(index)];
}

double SongTime::straightSecondsOf(double tick) const {
  if (m_points.empty()) return tick / kTicksOfBeat * secondsOfBeat(m_tempo);
  const double ofTick = secondsOfBeat(m_tempo) / kTicksOfBeat;
  if (tick < m_points.front().tick)
    return m_points.front().seconds - (m_points.front().tick - tick) * ofTick;
  if (tick > m_points.back().tick)
    return m_points.back().seconds + (tick - m_points.back().tick) * ofTick;
  const Point* at = pointBefore(tick, &Point::tick);
  return std::lerp(at[0].seconds, at[1].seconds, (tick - at[0].tick) / (at[1].tick - at[0].tick));
}

double SongTime::straightTickOf(double seconds) const {
  const double ticksOfSecond = kTicksOfBeat / secondsOfBeat(m_tempo);
  if (m_points.empty()) return seconds * ticksOfSecond;
  if (seconds < m_points.front().seconds)
    return m_points.front().tick - (m_points.front().seconds - seconds) * ticksOfSecond;
  if (seconds > m_points.back().seconds)
    return m_points.back().tick + (seconds - m_points.back().seconds) * ticksOfSecond;
  const Point* at = pointBefore(seconds, &Point::seconds);
  return std::lerp(at[0].tick, at[1].tick,
                   (seconds - at[0].seconds) / (at[1].seconds - at[0].seconds));
}

/// The first half of a beat takes its share of it, and the second one the rest.
double SongTime::swung(double tick) const {
  const double beat = std::floor(tick / kTicksOfBeat) * kTicksOfBeat;
  const double inBeat = tick - beat;
  if (inBeat <= kHalfBeat) return beat + inBeat * 2 * m_swing;
  return beat + kTicksOfBeat - (kTicksOfBeat - inBeat) * 2 * (1 - m_swing);
}

double SongTime::unswung(double tick) const {
  const double beat = std::floor(tick / kTicksOfBeat) * kTicksOfBeat;
  const double inBeat = tick - beat;
  if (inBeat <= kTicksOfBeat * m_swing) return beat + inBeat / (2 * m_swing);
  return beat + kTicksOfBeat - (kTicksOfBeat - inBeat) / (2 * (1 - m_swing));
}

}  // namespace korvel
