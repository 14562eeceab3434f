// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/BeatBars.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Ticks.h"
#include "platform/sound/SampleRate.h"

namespace korvel {
namespace {

constexpr int kFewestTicksOfHalf = 2;
constexpr int kThirdOfBeat = kTicksOfBeat / 3;
constexpr double kTempoOfNone = 120;

bool isToneless(const QBChord& chord) { return !chord.hold() || chord.hold()->tones().empty(); }

int ticksOfTone(const QBTone& tone, const QBChord& chord) {
  return tone.hasTicks() ? tone.ticks() : chord.ticks();
}

/// Tones that ended with the chord still do when its length changes by that.
void stretchTones(QBChord& chord, int by) {
  if (isToneless(chord)) return;
  for (QBTone* tone : chord.hold()->tones())
    if (ticksOfTone(*tone, chord) == chord.ticks()) tone->setTicks(std::max(chord.ticks() + by, 1));
}

void changeTicks(QBChord& chord, int by) {
  stretchTones(chord, by);
  chord.setTicks(chord.ticks() + by);
}

/// Tones are to last as long as their chord is written; those that ring on beyond others still do.
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

}  // namespace

BeatBars::BeatBars(QBTabMgr& db, QBSong& song)
    : m_db(db), m_song(song), m_hadLoop(song.fromChord() && song.toChord()) {
  song.forgetCaches();
  m_chords = song.allChords();
}

BeatBars::~BeatBars() = default;

bool BeatBars::areIn(QBSong& song) {
  return song.isOnBeats() && std::ranges::all_of(song.allChords(), [](const auto& chord) {
           return chord->measure() && chord->ticks() > 0;
         });
}

// ---- looking

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

// ---- changing

QBChord& BeatBars::insert(std::size_t before, QBMeasure* measure, int ticks, Time time) {
  QBChord& chord = *m_song.createChord();
  chord.setMeasure(measure);
  chord.setTicks(ticks);
  if (time) {
    chord.setBeatTime(*time);
    chord.setTimestamp(*time);
  }
  m_chords.insert(m_chords.begin() + static_cast<std::ptrdiff_t>(before), &chord);
  return chord;
}

void BeatBars::erase(std::size_t chord) {
  leaveLoop(chord);
  m_song.deleteChord(m_chords[chord]);
  m_chords.erase(m_chords.begin() + static_cast<std::ptrdiff_t>(chord));
}

void BeatBars::leaveLoop(std::size_t chord) {
  const bool isLast = chord + 1 == m_chords.size();
  if (m_song.fromChord() == &at(chord)) m_song.setFromChord(isLast ? nullptr : &at(chord + 1));
  if (m_song.toChord() == &at(chord)) m_song.setToChord(chord == 0 ? nullptr : &at(chord - 1));
}

void BeatBars::beginLater(std::size_t chord, int ticks) {
  QBChord& later = at(chord);
  moveInTime(later, ticks * samplesOfTick(chord));
  if (!isToneless(later))
    for (QBTone* tone : later.hold()->tones())
      tone->setTicks(std::max(ticksOfTone(*tone, later) - ticks, 1));
  later.setTicks(later.ticks() - ticks);
}

/// Within a bar.
void BeatBars::takeFrom(std::size_t chord, int ticks) {
  while (ticks > 0 && chord < m_chords.size()) {
    const int here = at(chord).ticks();
    if (here > ticks) return beginLater(chord, ticks);
    ticks -= here;
    erase(chord);
  }
}

void BeatBars::setTicks(std::size_t chord, int ticks) {
  ticks = std::clamp(ticks, 1, ticksOf(chord, m_chords.size()));
  setToneTicks(at(chord), writtenTicks(chord), ticks);
  if (ticks < at(chord).ticks())
    shorten(chord, ticks);
  else
    lengthen(chord, ticks);
}

void BeatBars::shorten(std::size_t chord, int ticks) {
  QBChord& shorter = at(chord);
  const int rest = shorter.ticks() - ticks;
  const Time time = timeAt(chord, ticks);
  const bool hasRest = isRestBehind(chord);
  shorter.setTicks(ticks);
  if (!hasRest) {
    insert(chord + 1, shorter.measure(), rest, time);
    return;
  }
  QBChord& behind = at(chord + 1);
  behind.setTicks(behind.ticks() + rest);
  if (time) {
    behind.setBeatTime(*time);
    behind.setTimestamp(*time);
  }
}

void BeatBars::lengthen(std::size_t chord, int ticks) {
  const int more = ticks - at(chord).ticks();
  const int inBar = std::min(more, ticksOf(chord + 1, endOfBar(chord)));
  takeFrom(chord + 1, inBar);
  at(chord).setTicks(at(chord).ticks() + inBar);
  goOnBehindBar(chord + 1, more - inBar);
}

void BeatBars::goOnBehindBar(std::size_t next, int ticks) {
  for (; ticks > 0 && next < m_chords.size(); ++next) {
    QBMeasure* measure = at(next).measure();
    const int part = std::min(ticks, ticksOf(next, endOfBar(next)));
    const Time time = timeAt(next, 0);
    takeFrom(next, part);
    insert(next, measure, part, time);
    ticks -= part;
  }
}

bool BeatBars::divide(std::size_t chord) {
  const int half = halfOf(chord);
  const int rest = at(chord).ticks() - half;
  if (half < kFewestTicksOfHalf || rest < kFewestTicksOfHalf) return false;
  const Time time = timeAt(chord, half);
  changeTicks(at(chord), -rest);
  insert(chord + 1, at(chord).measure(), rest, time);
  return true;
}

bool BeatBars::divideBefore(std::size_t chord) {
  const int half = halfOf(chord);
  if (half < kFewestTicksOfHalf || at(chord).ticks() - half < kFewestTicksOfHalf) return false;
  const Time time = timeAt(chord, 0);
  beginLater(chord, half);
  insert(chord, at(chord).measure(), half, time);
  return true;
}

void BeatBars::endRinging(std::size_t chord) {
  if (isToneless(at(chord))) return;
  for (const QBTone* tone : at(chord).hold()->tones()) {
    int between = 0;
    for (std::size_t before = chord; before-- > 0;) {
      between += at(before).ticks();
      const QBHold* hold = at(before).hold();
      QBTone* ringing = hold ? hold->findToneByString(tone->string()) : nullptr;
      if (!ringing) continue;
      if (ringing->ticks() > between) ringing->setTicks(between);
      break;
    }
  }
}

// ---- removing

void BeatBars::remove(std::size_t first, std::size_t last) {
  for (std::size_t end = last + 1; end > first;) {
    const std::size_t bar = beginOfBar(end - 1);
    const std::size_t begin = std::max(first, bar);
    if (begin == bar && end == endOfBar(end - 1))
      eraseBar(begin, end);
    else
      removeInBar(begin, end - 1);
    end = begin;
  }
}

/// What comes behind a gap does not follow the beats before it any more.
void BeatBars::eraseBar(std::size_t first, std::size_t end) {
  const platform::Ref<QBMeasure> measure(at(first).measure());
  for (std::size_t chord = end; chord > first; --chord) erase(chord - 1);
  if (first > 0)
    for (std::size_t chord = first; chord < m_chords.size(); ++chord)
      if (at(chord).hasBeatTime()) at(chord).clearBeatTime();
  if (m_song.measures().size() == 1) return;
  measure->setSong(nullptr);
  m_db.deleteInstance(measure);
}

void BeatBars::removeInBar(std::size_t first, std::size_t last) {
  for (std::size_t chord = last + 1; chord-- > first;) {
    if (chord == beginOfBar(chord)) {
      removeFirstOfBar(chord);
      continue;
    }
    QBChord& before = at(chord - 1);
    changeTicks(before, at(chord).ticks());
    before.setEdited(true);
    erase(chord);
  }
}

void BeatBars::removeFirstOfBar(std::size_t chord) {
  QBChord& first = at(chord);
  if (!isFollowedInBar(chord)) return;
  if (isToneless(first) && !isToneless(at(chord + 1))) {
    QBChord& next = at(chord + 1);
    changeTicks(next, first.ticks());
    if (first.hasBeatTime()) next.setBeatTime(first.beatTime());
    next.setTimestamp(first.timestamp());
    next.setEdited(true);
    return erase(chord);
  }
  if (!isToneless(first))
    for (const auto& tone : first.hold()->tones().snapshot()) first.hold()->deleteTone(tone);
  first.setHarmony(nullptr);
  first.clearBaseTone();
  first.setPattern(nullptr);
  first.setLeftpattern(nullptr);
  first.setEdited(true);
  if (!isRestBehind(chord)) return;
  first.setTicks(first.ticks() + at(chord + 1).ticks());
  erase(chord + 1);
}

// ---- moving

std::optional<std::size_t> BeatBars::move(std::size_t chord, int ticks) {
  if (!hasRoom(chord, ticks)) return {};
  at(chord).setEdited(true);
  if (ticks > 0)
    moveLater(chord, ticks);
  else
    moveEarlier(chord, -ticks);
  return chord;
}

bool BeatBars::hasRoom(std::size_t chord, int ticks) const {
  if (ticks > 0)
    return at(chord).ticks() > ticks || (isRestBehind(chord) && at(chord + 1).ticks() >= ticks);
  if (chord == beginOfBar(chord)) return false;
  const QBChord& before = at(chord - 1);
  return before.ticks() > -ticks || (before.ticks() == -ticks && isToneless(before));
}

void BeatBars::moveLater(std::size_t& chord, int ticks) {
  const platform::Ref<QBChord> moved(m_chords[chord]);
  const Time begin = timeAt(chord, 0);
  const double samples = ticks * samplesOfTick(chord);
  const bool givesRest = isRestBehind(chord) && at(chord + 1).ticks() >= ticks;
  const int run = runOf(chord);
  if (givesRest)
    takeFrom(chord + 1, ticks);
  else
    changeTicks(*moved, -ticks);
  moveInTime(*moved, samples);
  if (chord > beginOfBar(chord)) {
    changeTicks(at(chord - 1), ticks);
  } else {
    insert(chord, moved->measure(), ticks, begin);
    ++chord;
  }
  if (isToneless(*moved)) return;
  for (QBTone* tone : moved->hold()->tones())
    if (const int own = ticksOfTone(*tone, *moved); own <= run)
      tone->setTicks(std::min(own, runOf(chord)));
}

void BeatBars::moveEarlier(std::size_t& chord, int ticks) {
  QBChord& moved = at(chord);
  const double samples = ticks * samplesOfTick(chord - 1);
  if (isRestBehind(chord)) {
    QBChord& behind = at(chord + 1);
    moveInTime(behind, -ticks * samplesOfTick(chord));
    behind.setTicks(behind.ticks() + ticks);
  } else {
    changeTicks(moved, ticks);
  }
  moveInTime(moved, -samples);
  if (at(chord - 1).ticks() > ticks)
    changeTicks(at(chord - 1), -ticks);
  else
    erase(--chord);
}

// ---- writing

std::vector<QBChord*> BeatBars::write(std::size_t from, const std::vector<CopiedChord>& copies) {
  std::vector<QBChord*> written;
  for (const CopiedChord& copy : copies) {
    int left = 0;
    bool isFirst = true;
    do {
      if (from == m_chords.size()) addBar();
      if (isFirst)
        left = std::max(copy.ticks > 0 ? copy.ticks : copy.duration * ticksOfSixteenthAt(from), 1);
      QBMeasure* measure = at(from).measure();
      const int part = std::min(left, ticksOf(from, endOfBar(from)));
      const Time time = timeAt(from, 0);
      takeFrom(from, part);
      QBChord& chord = insert(from++, measure, part, time);
      if (std::exchange(isFirst, false)) written.push_back(&chord);
      left -= part;
    } while (left > 0);
  }
  return written;
}

/// A rest in the metre of the last one.
void BeatBars::addBar() {
  const auto bars = m_song.allMeasures();
  const QBMeasure* last = bars.empty() ? nullptr : bars.back().get();
  const bool isFree = last && last->chords().empty();
  QBMeasure* measure =
      isFree ? bars.back().get()
             : m_db.createMeasure(&m_song, last ? last->beat() : 4, last ? last->beattype() : 4);
  if (!isFree) measure->setPosition(last ? last->position() + 1 : 1);
  Time time;
  if (!m_chords.empty()) time = timeAt(m_chords.size() - 1, m_chords.back()->ticks());
  const int ticks = ticksOfBar(measure->beat(), measure->beattype());
  insert(m_chords.size(), measure, std::max(ticks, 1), time);
}

void BeatBars::finish() {
  int position = 0;
  for (const auto& chord : m_chords)
    if (chord->position() != ++position) chord->setPosition(position);
  m_song.forgetCaches();
  layDurations();
  mendLoop();
}

/// From the exact places, so that the sixteenths of a bar add up to it as far as they can.
void BeatBars::layDurations() {
  for (std::size_t bar = 0; bar < m_chords.size(); bar = endOfBar(bar)) {
    const bool compound = isInCompoundTime(at(bar));
    int place = placeInBar(bar);
    for (std::size_t i = bar; i < endOfBar(bar); ++i) {
      QBChord& chord = at(i);
      const int duration = sixteenthsBetween(place, place + chord.ticks(), compound);
      if (chord.duration() != duration) chord.setDuration(duration);
      if (!isToneless(chord))
        for (QBTone* tone : chord.hold()->tones()) {
          if (!tone->hasTicks()) tone->setTicks(chord.ticks());
          const int own = sixteenthsAlone(place, place + tone->ticks(), compound);
          if (tone->duration() != own) tone->setDuration(own);
        }
      place += chord.ticks();
    }
  }
}

void BeatBars::mendLoop() {
  if (!m_hadLoop) return;
  const QBChord* begin = m_song.fromChord();
  const QBChord* end = m_song.toChord();
  if (begin && end && begin->position() < end->position()) return;
  m_song.setFromChord(nullptr);
  m_song.setToChord(nullptr);
}

}  // namespace korvel
