// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/BeatBars.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "music/Ticks.h"
#include "workflow/editing/ChordTicks.h"

namespace korvel {
namespace {

constexpr int kFewestTicksOfHalf = 2;

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

std::optional<std::size_t> BeatBars::beginAt(int ticks) {
  if (ticks < 0) return {};
  for (std::size_t chord = 0; chord < m_chords.size(); ++chord) {
    const int here = at(chord).ticks();
    if (ticks == 0) return chord;
    if (ticks < here) {
      const Time time = timeAt(chord, ticks);
      changeTicks(at(chord), ticks - here);
      QBChord& begun = insert(chord + 1, at(chord).measure(), here - ticks, time);
      begun.setHarmony(at(chord).harmony());
      if (at(chord).hasBaseTone()) begun.setBaseTone(at(chord).baseTone());
      return chord + 1;
    }
    ticks -= here;
  }
  return {};
}

std::size_t BeatBars::indexOf(const QBChord& chord) const {
  return static_cast<std::size_t>(
      std::ranges::find(m_chords, &chord, &platform::Ref<QBChord>::get) - m_chords.begin());
}

void BeatBars::joinToBefore(std::size_t chord) {
  if (!isToneless(at(chord)) || chord == beginOfBar(chord)) return;
  changeTicks(at(chord - 1), at(chord).ticks());
  erase(chord);
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
  numberBars();
  m_song.forgetCaches();
  endAtNextStrikes();
  layDurations();
  mendLoop();
}

void BeatBars::numberBars() {
  int position = 0;
  for (const auto& bar : m_song.allMeasures())
    if (bar->position() != ++position) bar->setPosition(position);
}

/// What rings on a string ends where another tone sounds there.
void BeatBars::endAtNextStrikes() {
  std::array<int, kStrings> next;
  int tick = ticksOf(0, m_chords.size());
  next.fill(std::numeric_limits<int>::max());
  for (std::size_t i = m_chords.size(); i-- > 0;) {
    tick -= at(i).ticks();
    Tones tones = tonesOf(at(i));
    std::erase_if(tones, [](const auto& tone) {
      return tone->string() < 0 || tone->string() >= kStrings;  // in an odd store
    });
    for (const auto& tone : tones) {
      const int most = next[static_cast<std::size_t>(tone->string())] - tick;
      if (tone->hasTicks() && tone->ticks() > most) tone->setTicks(most);
    }
    for (const auto& tone : tones)
      if (tone->isActive()) next[static_cast<std::size_t>(tone->string())] = tick;
  }
}

/// From the exact places, so that the sixteenths of a bar add up to it.
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
