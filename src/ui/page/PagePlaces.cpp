// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page/PagePlaces.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "music/Ticks.h"
#include "tab/layout/SongBars.h"

namespace korvel::ui {
namespace {

/// As the source of a page counts them.
std::vector<int> ticksOfChords(QBSong& song, const PageSource& source) {
  std::vector<int> ticks(song.allChords().size());
  std::iota(ticks.begin(), ticks.end(), 0);
  if (!source.isInBars || source.bars.empty()) return ticks;
  const SongBars written(song);
  const int before = -source.bars.front().tick;
  for (const SongBars::Bar& bar : written.bars())
    for (const SongBars::Event& event : bar.events)
      ticks[static_cast<std::size_t>(event.chord)] = event.from - before;
  return ticks;
}

}  // namespace

PagePlaces::PagePlaces(QBSong& song, const PageSource& source, const SongPage& page)
    : m_ticks(ticksOfChords(song, source)) {
  if (page.isEmpty()) return;
  // The page leaves bars out that are empty at the ends of the song.
  auto bar = std::ranges::find(source.bars, page.sections.front().bars.front().number,
                               &PageSource::Bar::number);
  for (int s = 0; s < static_cast<int>(page.sections.size()); ++s) {
    const PageSection& section = page.sections[static_cast<std::size_t>(s)];
    for (int time = 0; time < section.times; ++time)
      for (int b = 0; b < static_cast<int>(section.bars.size()); ++b, ++bar) {
        if (bar == source.bars.end()) return;
        Bar made{{s, time, b, 0}, {bar->tick, bar->tick + bar->ticks}, {}};
        for (const PageChord& chord : section.bars[static_cast<std::size_t>(b)].chords)
          made.chords.push_back(bar->tick +
                                static_cast<int>(std::lround(chord.beat * kTicksOfBeat)));
        m_bars.push_back(std::move(made));
      }
  }
}

std::optional<PagePlaces::Place> PagePlaces::of(int chord) const {
  if (chord < 0 || chord >= static_cast<int>(m_ticks.size())) return std::nullopt;
  const int tick = m_ticks[static_cast<std::size_t>(chord)];
  const auto after =
      std::ranges::upper_bound(m_bars, tick, {}, [](const Bar& bar) { return bar.ticks.first; });
  if (after == m_bars.begin() || tick >= std::prev(after)->ticks.end) return std::nullopt;
  const Bar& bar = *std::prev(after);
  Place place = bar.place;
  const auto next = std::ranges::upper_bound(bar.chords, tick);
  place.chord = std::max(0, static_cast<int>(next - bar.chords.begin()) - 1);
  return place;
}

std::optional<PagePlaces::Ticks> PagePlaces::ticksOf(int section, int time, int bar) const {
  for (const Bar& each : m_bars)
    if (each.place.section == section && each.place.time == time && each.place.bar == bar)
      return each.ticks;
  return std::nullopt;
}

}  // namespace korvel::ui
