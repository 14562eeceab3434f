// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ReadBars.h"

#include <algorithm>
#include <utility>

#include "music/Ticks.h"
#include "platform/text/Blanks.h"

namespace korvel {
namespace {

/// Longer files are no songs, nor are those whose bars hold more than so many letters once repeats
/// are played out; a chord counts as some.
constexpr std::size_t kMostBarsRead = 20000;
constexpr std::size_t kMostLettersRead = std::size_t{4} << 20U;
constexpr std::size_t kLettersOfChord = 32;

/// The same chord again goes on.
void addUnlessSame(PageSource& song, PageSource::Chord chord, int bar) {
  chord.tick += bar;
  if (!song.chords.empty()) {
    const PageSource::Chord& last = song.chords.back();
    if (last.root == chord.root && last.type == chord.type && last.bass == chord.bass) return;
  }
  song.chords.push_back(std::move(chord));
}

}  // namespace

void ReadBars::setMetre(int beat, int beattype) {
  end();
  m_beat = beat;
  m_beattype = beattype;
}

int ReadBars::ticksOfWhole() const { return ticksOfBar(m_beat, m_beattype); }

// ---- what comes

ReadBars::Bar& ReadBars::open() { return m_open.emplace(Bar{m_beat, m_beattype}); }

void ReadBars::end() {
  if (!m_open) return;
  keep(std::move(*m_open));
  m_open.reset();
}

void ReadBars::keep(Bar bar) {
  m_letters += bar.chords.size() * kLettersOfChord;
  for (const PageSource::Words& words : bar.words) m_letters += words.text.size();
  m_bars.push_back(std::move(bar));
}

void ReadBars::addWhole(Chord chord) {
  end();
  chord.ticks = ticksOfWhole();
  Bar& bar = open();
  bar.ticks = chord.ticks;
  bar.chords.push_back(std::move(chord));
  addEarlyWords();
  end();
}

void ReadBars::addBeside(Chord chord, int ticks) {
  if (m_open && m_open->ticks >= ticksOfWhole()) end();
  Bar& bar = m_open ? *m_open : open();
  chord.tick = bar.ticks;
  chord.ticks = ticks;
  bar.ticks += ticks;
  bar.chords.push_back(std::move(chord));
  addEarlyWords();
}

void ReadBars::addBar(std::vector<Chord> chords, int ticks) {
  Bar& bar = open();
  bar.ticks = ticks;
  bar.chords = std::move(chords);
  if (bar.chords.empty() || bar.chords.front().tick > 0) {
    Chord before;
    if (!m_bars.empty() && !m_bars.back().chords.empty()) before = m_bars.back().chords.back();
    before.tick = 0;
    bar.chords.insert(bar.chords.begin(), std::move(before));
  }
  addEarlyWords();
  end();
}

void ReadBars::addWords(std::string_view words) {
  words = platform::trimmed(words);
  if (words.empty()) return;
  if (m_bars.empty() && !m_open) {
    m_early += (m_early.empty() ? "" : " ") + std::string(words);
    return;
  }
  Bar& bar = m_open ? *m_open : m_bars.back();
  const int tick = bar.chords.empty() ? 0 : bar.chords.back().tick;
  bar.words.push_back({tick, std::string(words)});
  if (!m_open) m_letters += words.size();
}

void ReadBars::addEarlyWords() {
  if (!m_early.empty()) m_open->words.push_back({0, std::exchange(m_early, {})});
}

// ---- what comes again

void ReadBars::repeat(std::size_t from, std::size_t behind) {
  for (std::size_t at = from; at < behind && !isTooLong(); ++at) keep(m_bars[at]);
}

void ReadBars::repeatLast(std::size_t count) {
  if (m_bars.size() < count) return;
  const std::size_t from = m_bars.size() - count;
  for (std::size_t i = 0; i < count; ++i) {
    Bar again = m_bars[from + i];
    again.words.clear();
    keep(std::move(again));
  }
}

// ---- the whole

std::size_t ReadBars::room() const {
  return kMostBarsRead - std::min(kMostBarsRead, m_bars.size());
}

bool ReadBars::isTooLong() const {
  return m_bars.size() > kMostBarsRead || m_letters > kMostLettersRead;
}

void ReadBars::layInto(PageSource& song) const {
  song.isInBars = true;
  const int whole = ticksOfBar(m_bars.front().beat, m_bars.front().beattype);
  const bool isPickUp = m_bars.size() > 1 && m_bars.front().ticks < whole;
  int tick = isPickUp ? -m_bars.front().ticks : 0;
  int number = isPickUp ? 0 : 1;
  for (const Bar& bar : m_bars) {
    const int full = ticksOfBar(bar.beat, bar.beattype);
    const int ticks = number == 0 ? bar.ticks : full;
    for (const Chord& chord : bar.chords)
      if (chord.tick < ticks) addUnlessSame(song, chord, tick);
    for (const PageSource::Words& words : bar.words)
      song.words.push_back({tick + std::min(words.tick, ticks - 1), words.text});
    song.bars.push_back({tick, ticks, bar.beat, bar.beattype, number++});
    tick += ticks;
  }
  for (std::size_t i = 0; i < song.chords.size(); ++i)
    song.chords[i].ticks =
        (i + 1 < song.chords.size() ? song.chords[i + 1].tick : tick) - song.chords[i].tick;
}

}  // namespace korvel
