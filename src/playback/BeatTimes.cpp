// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/BeatTimes.h"

#include <algorithm>
#include <limits>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "music/ChordStep.h"
#include "music/Ticks.h"

namespace korvel {
namespace {

constexpr int kBeatsWithoutBar = 4;
constexpr int kMostBeatsCounted = 16;
constexpr double kMinute = 60;

int ticksOfBeatIn(const QBMeasure& measure, int ticksOfMeasure) {
  if (ticksOfMeasure <= 0 || isCompound(measure.beat(), measure.beattype())) return kTicksOfBeat;
  return ticksOfMeasure / measure.beat();
}

bool isStruckOn(const QBChord& chord, int string) {
  const QBHold* hold = chord.hold();
  if (!hold) return false;
  for (const QBTone* tone : hold->tones())
    if (tone->isActive() && tone->string() == string) return true;
  return false;
}

}  // namespace

BeatTimes::BeatTimes(QBSong& song, SongTime::Tempo tempo)
    : m_time(song, tempo), m_chords(song.allChords()), m_end(kSecondsOfChord) {
  readBars(song);
}

// ---- bars

void BeatTimes::readBars(const QBSong& song) {
  if (song.measures().empty())
    m_bars.push_back({m_time.begin(), m_time.end(), m_time.begin(), 0, kTicksOfBeat});
  for (std::size_t first = 0; first < m_chords.size();) {
    const QBMeasure* measure = m_chords[first]->measure();
    std::size_t end = first + 1;
    while (end < m_chords.size() && m_chords[end]->measure() == measure) ++end;
    if (measure) addBar(*measure, {first, end});
    first = end;
  }
}

void BeatTimes::addBar(const QBMeasure& measure, Part part) {
  const int length = ticksOfBar(measure.beat(), measure.beattype());
  const int begin = m_time.tickOf(part.first);
  const int end = m_time.tickOf(part.end);
  const bool isPickUp = begin < 0;
  m_bars.push_back(
      {begin, end, isPickUp ? end - length : begin, length, ticksOfBeatIn(measure, length)});
}

/// The bar that a tick lies in; where there is none, one of four beats that begins there.
BeatTimes::Bar BeatTimes::barAt(int tick) const {
  for (const Bar& bar : m_bars)
    if (bar.length > 0 && bar.begin <= tick && tick < bar.end) return bar;
  return {tick, tick, tick, kBeatsWithoutBar * kTicksOfBeat, kTicksOfBeat};
}

BeatTimes::Part BeatTimes::partOf(int from, int to) const {
  const auto position = [](const auto& chord) { return chord->position(); };
  const auto first = std::ranges::lower_bound(m_chords, from, {}, position);
  const auto end = std::ranges::upper_bound(m_chords, to, {}, position);
  const auto index = [this](auto at) { return static_cast<std::size_t>(at - m_chords.begin()); };
  return {index(first), std::max(index(first), index(end))};
}

// ---- beats

std::vector<TimedBeat> BeatTimes::beats(int from, int to) const {
  const Part part = partOf(from, to);
  const int begin = m_time.tickOf(part.first);
  const int end = m_time.tickOf(part.end);
  std::vector<TimedBeat> found;
  for (const Bar& bar : m_bars)
    for (int tick = bar.downbeat; tick < std::min(bar.end, end); tick += bar.beat)
      if (tick >= std::max(bar.begin, begin))
        found.push_back({kSecondsOfChord + m_time.secondsOf(tick) - m_time.secondsOf(begin),
                         bar.length > 0 && tick == bar.downbeat});
  return found;
}

std::vector<TimedBeat> BeatTimes::countIn(int from) const {
  const std::size_t first = partOf(from, std::numeric_limits<int>::max()).first;
  const int begin = m_time.tickOf(first);
  const Bar bar = barAt(begin);
  const int beatBefore = begin - (begin - bar.downbeat) % bar.beat;
  const double secondsOfTick = kMinute / m_time.beatsPerMinuteAt(begin) / kTicksOfBeat;
  const int counted = std::min(bar.length, kMostBeatsCounted * bar.beat);
  std::vector<TimedBeat> found;
  for (int tick = bar.downbeat - counted; tick < (begin < 0 ? bar.end : begin); tick += bar.beat) {
    const int steady = std::max(beatBefore - tick, 0);
    const double time = m_time.secondsOf(tick + steady) - steady * secondsOfTick;
    found.push_back({kSecondsOfChord + time - m_time.secondsOf(begin),
                     tick == bar.downbeat || tick == bar.downbeat - counted});
  }
  return found;
}

// ---- filling a sequence

double BeatTimes::secondsOfChord(std::size_t chord) const {
  return m_time.secondsOf(m_time.tickOf(chord));
}

/// Nothing of another song has a time here.
double BeatTimes::goTo(const QBChord& chord) {
  const bool begins = m_begins.empty();
  const std::size_t next = begins ? 0 : m_chord + 1;
  const bool follows = !begins && next < m_chords.size() && m_chords[next] == &chord;
  const auto found = follows ? m_chords.begin() + static_cast<std::ptrdiff_t>(next)
                             : std::ranges::find(m_chords, &chord, &platform::Ref<QBChord>::get);
  if (found == m_chords.end()) return m_end;
  m_chord = static_cast<std::size_t>(found - m_chords.begin());
  if (!follows) m_origin = m_end - secondsOfChord(m_chord);
  m_begins.push_back(m_origin + secondsOfChord(m_chord));
  m_end = m_origin + secondsOfChord(m_chord + 1);
  if (chord.hold() && !chord.hold()->isEmpty()) m_lastStruck = m_begins.back();
  return m_begins.back();
}

double BeatTimes::lengthOf(const QBTone& tone) const {
  const int begin = m_time.tickOf(m_chord);
  const int written = tone.ticks() > 0 ? tone.ticks() : m_chords[m_chord]->ticks();
  const int end = begin + std::clamp(written, 0, m_time.end() - begin);
  return m_time.secondsOf(tickOfRepetition(tone, end)) - m_time.secondsOf(begin);
}

/// Where its string is struck again before a tick, or else that tick.
int BeatTimes::tickOfRepetition(const QBTone& tone, int end) const {
  for (std::size_t i = m_chord + 1; i < m_chords.size() && m_time.tickOf(i) < end; ++i)
    if (isStruckOn(*m_chords[i], tone.string())) return m_time.tickOf(i);
  return end;
}

// ---- playing

double BeatTimes::beginOf(int index) const {
  const auto i = static_cast<std::size_t>(std::max(index, 0));
  return i < m_begins.size() ? m_begins[i] : m_end;
}

int BeatTimes::indexAt(double time) const {
  if (time >= m_end) return -1;
  return static_cast<int>(std::ranges::upper_bound(m_begins, time) - m_begins.begin()) - 1;
}

double BeatTimes::placeOf(int index) const { return beginOf(index); }

std::optional<double> BeatTimes::turnOfLoop() const {
  const double begin = beginOf(0);
  return begin < m_end ? std::optional(begin) : std::nullopt;
}

float BeatTimes::shareUntil(int index, int) const {
  const double begin = beginOf(0);
  return m_end > begin ? static_cast<float>((beginOf(index + 1) - begin) / (m_end - begin)) : 1.0F;
}

double BeatTimes::secondsUntil(int chord) const {
  const std::size_t last = std::min(static_cast<std::size_t>(std::max(chord, 0)), m_chords.size());
  return secondsOfChord(last) - secondsOfChord(0);
}

std::optional<double> BeatTimes::recordedSecondsAt(double time) const {
  if (!m_time.isAsRecorded() || m_begins.empty()) return {};
  return time - m_origin;
}

}  // namespace korvel
