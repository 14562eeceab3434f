// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/fingering/GripList.h"

#include <algorithm>
#include <cassert>
#include <numeric>

namespace korvel::precise {
namespace {

constexpr std::size_t kFewestOfChord = 3;

Grip emptyGrip() {
  Grip grip;
  grip.fret.fill(Grip::kNone);
  grip.string.fill(Grip::kNone);
  return grip;
}

Grip with(Grip grip, std::size_t note, std::size_t string, int fret) {
  grip.fret[string] = static_cast<std::int8_t>(fret);
  grip.string[note] = static_cast<std::int8_t>(string);
  grip.sum += fret;
  if (fret == 0) {
    ++grip.open;
    return grip;
  }
  grip.lowest = grip.lowest == 0 ? fret : std::min(grip.lowest, fret);
  grip.highest = std::max(grip.highest, fret);
  return grip;
}

/// Neighbours on the neck, whatever the strings are tuned to.
int gapsIn(const Grip& grip) {
  const auto played = [](std::int8_t fret) { return fret != Grip::kNone; };
  const auto first = std::ranges::find_if(grip.fret, played);
  const auto last = std::find_if(grip.fret.rbegin(), grip.fret.rend(), played).base();
  return first < last ? static_cast<int>(std::count(first, last, Grip::kNone)) : 0;
}

}  // namespace

GripList::GripList(const OpenPitches& open, int frets) : m_open(open), m_frets(frets) {
  std::iota(m_byPitch.begin(), m_byPitch.end(), std::size_t{0});
  std::ranges::stable_sort(m_byPitch, {}, [&](std::size_t string) { return open[string]; });
}

std::span<const Grip> GripList::find(std::span<const int> pitches) {
  assert(pitches.size() <= kMostNotes);
  m_pitches = pitches;
  m_most = 0;
  for (extendAll(); m_grips.empty(); extendAll()) ++m_most;
  if (pitches.size() < kFewestOfChord) return m_grips;
  ++m_most;
  extendAll();
  return m_grips;
}

void GripList::extendAll() {
  m_grips.clear();
  extend(emptyGrip(), 0, 0);
}

void GripList::extend(const Grip& grip, std::size_t note, std::size_t from) {
  if (note == m_pitches.size()) {
    m_grips.push_back(grip);
    m_grips.back().gaps = gapsIn(grip);
    return;
  }
  for (std::size_t rank = from; rank < m_byPitch.size(); ++rank) {
    const std::size_t string = m_byPitch[rank];
    const int fret = m_pitches[note] - m_open[string];
    if (fret >= 0 && fret <= m_frets) extend(with(grip, note, string, fret), note + 1, rank + 1);
  }
  if (grip.left == m_most) return;
  Grip without = grip;
  ++without.left;
  extend(without, note + 1, from);
}

}  // namespace korvel::precise
