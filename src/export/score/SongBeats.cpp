// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/SongBeats.h"

#include <algorithm>

#include "music/Ticks.h"

namespace korvel {
namespace {

int ticksOf(const Meter& meter) { return ticksOfBar(meter.beats, meter.beatType); }

/// A bar line between beats comes when it would without swing: what is written has no other place.
TimedChords withoutSwing(TimedChords time) {
  time.swing.reset();
  return time;
}

}  // namespace

SongBeats::SongBeats(const BeatSheet& sheet) : m_sheet(sheet), m_time(withoutSwing(sheet.time)) {
  layOutBars();
}

/// A pick-up is as long as what lies before the first bar line; all else is whole bars.
void SongBeats::layOutBars() {
  Meter meter;
  for (const Meter& each : m_sheet.meters) {
    meter = each;
    const bool isPickUp = m_bars.empty() && m_time.begin() < 0;
    addBar(meter, isPickUp ? -m_time.begin() : ticksOf(meter));
  }
  while (m_bars.empty() || m_bars.back().tick + m_bars.back().ticks < m_time.end())
    addBar(meter, ticksOf(meter));
}

void SongBeats::addBar(const Meter& meter, int ticks) {
  Bar bar{m_time.begin(), ticks, 0, meter};
  if (m_bars.empty()) {
    bar.unit = bar.tick * bar.unitsOfTick();
  } else {
    const Bar& before = m_bars.back();
    bar.tick = before.tick + before.ticks;
    bar.unit = before.unit + before.ticks * before.unitsOfTick();
  }
  m_bars.push_back(bar);
}

int SongBeats::unitsOf(int tick) const {
  const auto after = std::upper_bound(m_bars.begin() + 1, m_bars.end(), tick,
                                      [](int at, const Bar& bar) { return at < bar.tick; });
  const Bar& bar = *(after - 1);
  return bar.unit + (tick - bar.tick) * bar.unitsOfTick();
}

double SongBeats::secondsOfUnit(int unit) const {
  const auto after = std::upper_bound(m_bars.begin() + 1, m_bars.end(), unit,
                                      [](int at, const Bar& bar) { return at < bar.unit; });
  const Bar& bar = *(after - 1);
  return m_time.secondsOf(bar.tick + static_cast<double>(unit - bar.unit) / bar.unitsOfTick());
}

double SongBeats::tempo() const {
  constexpr double kQuartersOfDottedOne = 1.5;
  const double beats = SongTime(m_sheet.time, SongTime::Tempo::strict).beatsPerMinuteAt(0);
  return m_bars.front().meter.isCompound() ? beats * kQuartersOfDottedOne : beats;
}

std::vector<BeatBar> SongBeats::bars(const std::optional<Meter>& meter) const {
  std::vector<BeatBar> bars;
  if (meter)
    bars = barsOver(unitsOf(m_time.begin()), unitsOf(m_time.end()), *meter);
  else
    for (const Bar& bar : m_bars)
      bars.push_back({bar.unit, bar.ticks * bar.unitsOfTick(), bar.meter, std::nullopt});
  markTempi(bars, tempo(), [this](int unit) { return secondsOfUnit(unit); });
  return bars;
}

BeatMusic SongBeats::music(const std::optional<Meter>& meter) const {
  BeatMusic music{{}, bars(meter)};
  for (std::size_t i = 0; i < m_sheet.chords.size(); ++i) {
    const BeatSheet::Chord& written = m_sheet.chords[i];
    const int tick = m_time.tickOf(i);
    const int start = unitsOf(tick);
    BeatChord chord{start, unitsOf(m_time.tickOf(i + 1)) - start, written.tones, written.harmony};
    for (BeatTone& tone : chord.tones)
      tone.length = unitsOf(tick + std::clamp(tone.length, 0, m_time.end() - tick)) - start;
    music.chords.push_back(std::move(chord));
  }
  return music;
}

}  // namespace korvel
