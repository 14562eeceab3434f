// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/grips/GripList.h"

#include <algorithm>
#include <cassert>
#include <numeric>

namespace korvel::fingering {
namespace {

/// Frets that a hand spans at most, counted from its lowest pressed one.
constexpr int kWidest = 5;

Grip with(Grip grip, std::size_t note, std::size_t string, int fret) {
  grip.fret[string] = static_cast<std::int8_t>(fret);
  grip.string[note] = static_cast<std::int8_t>(string);
  ++grip.played;
  if (fret == 0) {
    ++grip.open;
    return grip;
  }
  grip.lowest = grip.lowest == 0 ? fret : std::min(grip.lowest, fret);
  grip.highest = std::max(grip.highest, fret);
  return grip;
}

/// Strings left alone between neighbours on the neck, whatever the strings are tuned to.
int gapsIn(const Grip& grip) {
  const auto played = [](std::int8_t fret) { return fret != Grip::kNone; };
  const auto first = std::ranges::find_if(grip.fret, played);
  const auto last = std::find_if(grip.fret.rbegin(), grip.fret.rend(), played).base();
  return first < last ? static_cast<int>(std::count(first, last, Grip::kNone)) : 0;
}

int fingersOf(const Grip& grip) {
  const auto above = std::ranges::count_if(
      grip.fret, [&](std::int8_t fret) { return fret > 0 && fret > grip.lowest; });
  return static_cast<int>(above) + (grip.lowest > 0 ? 1 : 0);
}

}  // namespace

Grip emptyGrip() {
  Grip grip;
  grip.fret.fill(Grip::kNone);
  grip.string.fill(Grip::kNone);
  return grip;
}

GripList::GripList(const OpenPitches& open, int frets) : m_open(open), m_frets(frets) {
  std::iota(m_byPitch.begin(), m_byPitch.end(), std::size_t{0});
  std::ranges::stable_sort(m_byPitch, {}, [&](std::size_t string) { return open[string]; });
}

std::span<const Grip> GripList::find(std::span<const GripNote> notes) {
  assert(notes.size() <= kMostNotes);
  m_notes = notes;
  m_grips.clear();
  m_doubtfulOnly = false;
  for (m_left = 0; m_grips.empty(); ++m_left) list();
  m_doubtfulOnly = true;
  if (m_left == 1 && notes.size() > 1) extend(emptyGrip(), 0, 0);
  return m_grips;
}

/// Where notes stay, the ways that a hand would take come first.
void GripList::list() {
  const auto stays = [](const GripNote& note) { return note.string != Settled::kAnyString; };
  extend(emptyGrip(), 0, 0);
  if (!m_grips.empty() || std::ranges::none_of(m_notes, stays)) return;
  m_asItIs = true;
  extend(emptyGrip(), 0, 0);
  m_asItIs = false;
}

/// A string on which another note stays is not for this one.
bool GripList::isFree(const Grip& grip, std::size_t note, std::size_t string) const {
  const int only = m_notes[note].string;
  if (only != Settled::kAnyString && only != static_cast<int>(string)) return false;
  if (grip.fret[string] != Grip::kNone) return false;
  return only != Settled::kAnyString ||
         std::ranges::none_of(
             m_notes, [&](int other) { return other == static_cast<int>(string); },
             &GripNote::string);
}

void GripList::extend(const Grip& grip, std::size_t note, std::size_t from) {
  const int left = static_cast<int>(note) - grip.played;
  if (note == m_notes.size()) {
    if (left != m_left || (grip.span() > kWidest && !m_asItIs)) return;
    m_grips.push_back(grip);
    m_grips.back().gaps = gapsIn(grip);
    m_grips.back().fingers = fingersOf(grip);
    return;
  }
  for (std::size_t rank = from; rank < m_byPitch.size(); ++rank) {
    const std::size_t string = m_byPitch[rank];
    const int fret = m_notes[note].pitch - m_open[string];
    if (fret >= 0 && fret <= m_frets && isFree(grip, note, string))
      extend(with(grip, note, string, fret), note + 1, m_asItIs ? 0 : rank + 1);
  }
  if (left < m_left && (!m_doubtfulOnly || m_notes[note].doubtful)) extend(grip, note + 1, from);
}

}  // namespace korvel::fingering
