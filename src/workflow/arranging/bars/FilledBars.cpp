// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/arranging/bars/FilledBars.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/songs/SongTime.h"
#include "model/songs/ToneOrder.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {
namespace {

/// The first bar line behind a tick.
int barLineAfter(int tick, int fullTicks) {
  const int bar = tick >= 0 ? tick / fullTicks : -((fullTicks - 1 - tick) / fullTicks);
  return (bar + 1) * fullTicks;
}

class BarFiller {
 public:
  BarFiller(QBSong& song, std::span<const PlacedChord> chords)
      : m_db(QBTabMgr::of(song)), m_song(song), m_chords(chords) {}

  void fill(const BarSpan& bar) {
    m_measure = m_db.createMeasure(&m_song, bar.beat, bar.beattype);
    for (int tick = bar.begin; tick < bar.end;) {
      const bool begins = m_next < m_chords.size() && m_chords[m_next].tick <= tick;
      QBChord* chord = begins ? m_chords[m_next++].chord.get() : goingOn();
      const int next = m_next < m_chords.size() ? m_chords[m_next].tick : bar.end;
      const int end = std::clamp(next, tick, bar.end);
      lay({chord, tick}, end, bar);
      tick = end;
    }
  }

  /// Chords without length, as an odd store may have them, stay at the end.
  void finish(const BarSpan& last) {
    while (m_next < m_chords.size())
      lay({m_chords[m_next++].chord.get(), last.end}, last.end, last);
    giveTimes();
    for (std::size_t i = 0; i < m_laid.size(); ++i)
      m_laid[i].chord->setPosition(static_cast<int>(i) + 1);
    m_song.forgetCaches();
  }

 private:
  struct Laid {
    QBChord* chord;
    int tick;
  };

  QBChord* goingOn() {
    QBChord* chord = m_song.createChord();
    if (m_laid.empty()) return chord;
    const QBChord& before = *m_laid.back().chord;
    chord->setHarmony(before.harmony());
    if (before.hasBaseTone()) chord->setBaseTone(before.baseTone());
    chord->setTimestamp(before.timestamp());
    return chord;
  }

  void lay(const Laid& laid, int end, const BarSpan& bar) {
    laid.chord->setTicks(end - laid.tick);
    laid.chord->setDuration(
        sixteenthsBetween(laid.tick - bar.end, end - bar.end, bar.isInCompoundTime()));
    m_measure->addChord(laid.chord);
    m_laid.push_back(laid);
  }

  void giveTimes() {
    std::size_t before = m_laid.size();
    for (std::size_t i = 0; i < m_laid.size(); ++i) {
      if (!m_laid[i].chord->hasBeatTime()) continue;
      for (std::size_t between = before + 1; between < i; ++between)
        giveTime(m_laid[between], m_laid[before], m_laid[i]);
      before = i;
    }
  }

  static void giveTime(const Laid& laid, const Laid& before, const Laid& after) {
    if (after.tick <= before.tick) return;
    const auto begin = static_cast<double>(before.chord->beatTime());
    const auto end = static_cast<double>(after.chord->beatTime());
    const double share = static_cast<double>(laid.tick - before.tick) / (after.tick - before.tick);
    laid.chord->setBeatTime(std::llround(std::lerp(begin, end, share)));
    laid.chord->setTimestamp(laid.chord->beatTime());
  }

  QBTabMgr& m_db;
  QBSong& m_song;
  std::span<const PlacedChord> m_chords;
  std::size_t m_next = 0;
  QBMeasure* m_measure = nullptr;
  std::vector<Laid> m_laid;
};

bool hasString(const QBTone& tone) { return tone.string() >= 0 && tone.string() < kStrings; }

}  // namespace

bool isCompoundAt(const QBChord& chord) {
  const QBMeasure* measure = chord.measure();
  return measure && isCompound(measure->beat(), measure->beattype());
}

std::vector<BarSpan> barsOf(QBSong& song) {
  const SongTime time(song, SongTime::Tempo::strict);
  if (song.measures().empty()) return barsOfMetre(4, 4, time.begin(), time.end());
  const auto& chords = song.allChords();
  std::vector<BarSpan> bars;
  const QBMeasure* current = nullptr;
  for (std::size_t i = 0; i < chords.size(); ++i) {
    const QBMeasure* measure = chords[i]->measure();
    if (bars.empty() || (measure && measure != current)) {
      bars.push_back({.begin = time.tickOf(i)});
      current = measure;
      if (measure) bars.back().beat = measure->beat();
      if (measure) bars.back().beattype = measure->beattype();
    }
    bars.back().end = time.tickOf(i + 1);
  }
  return bars;
}

std::vector<BarSpan> barsOfMetre(int beat, int beattype, int begin, int end) {
  const int full = ticksOfBar(beat, beattype);
  if (full <= 0) throw std::domain_error("a bar of that metre has no length");
  std::vector<BarSpan> bars;
  for (int at = begin; at < end; at = bars.back().end)
    bars.push_back({at, barLineAfter(at, full), beat, beattype});
  if (bars.size() == 1) bars.front().begin = bars.front().end - full;
  return bars;
}

void extendBars(std::vector<BarSpan>& bars, int begin, int end) {
  if (bars.empty()) return;
  for (int full = bars.front().fullTicks(); full > 0 && bars.front().begin > begin;) {
    BarSpan first = bars.front();
    const bool isFull = first.end - first.begin >= full;
    if (isFull) first.end = first.begin;
    first.begin = std::max(begin, first.end - full);
    if (isFull)
      bars.insert(bars.begin(), first);
    else
      bars.front() = first;
  }
  for (BarSpan next = bars.back(); next.fullTicks() > 0 && next.end < end; bars.push_back(next)) {
    next.begin = next.end;
    next.end += next.fullTicks();
  }
}

void fillBars(QBSong& song, std::span<const PlacedChord> chords, std::span<const BarSpan> bars) {
  if (bars.empty()) return;
  BarFiller filler(song, chords);
  for (const BarSpan& bar : bars) filler.fill(bar);
  filler.finish(bars.back());
}

void endTonesAtNextStrike(QBSong& song) {
  const SongTime time(song, SongTime::Tempo::strict);
  const auto& chords = song.allChords();
  std::array<int, kStrings> next;
  next.fill(time.end());
  for (std::size_t i = chords.size(); i-- > 0;) {
    const int tick = time.tickOf(i);
    Tones tones = tonesOf(*chords[i]);
    std::erase_if(tones, [](const auto& tone) { return !hasString(*tone); });
    for (const auto& tone : tones) {
      const int most = std::max(next[static_cast<std::size_t>(tone->string())] - tick, 1);
      if (tone->ticks() <= most) continue;
      tone->setTicks(most);
      tone->setDuration(sixteenthsAlone(tick, tick + most, isCompoundAt(*chords[i])));
    }
    for (const auto& tone : tones)
      if (tone->isActive()) next[static_cast<std::size_t>(tone->string())] = tick;
  }
}

}  // namespace korvel
