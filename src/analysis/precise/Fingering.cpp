// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Fingering.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <numeric>
#include <vector>

#include "analysis/precise/FingeringSearch.h"

namespace korvel::precise {
namespace {

/// Notes whose onsets lie this close, in seconds, are played by one grip. A strum takes longer: its
/// notes are events of their own, which ring into each other.
constexpr double kTogether = 0.05;

using Order = std::vector<std::size_t>;

Order byOnset(std::span<const Note> notes) {
  Order order(notes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return notes[i].onset; });
  return order;
}

/// The front of the order that starts together.
std::span<std::size_t> nextEvent(std::span<std::size_t> order, std::span<const Note> notes) {
  const double last = notes[order.front()].onset + kTogether;
  const auto after =
      std::ranges::find_if(order, [&](std::size_t i) { return notes[i].onset > last; });
  return order.first(static_cast<std::size_t>(after - order.begin()));
}

/// The strongest notes of an event, no more than strings, by pitch.
std::span<std::size_t> playable(std::span<std::size_t> event, std::span<const Note> notes) {
  std::ranges::stable_sort(event, std::ranges::greater(),
                           [&](std::size_t i) { return notes[i].strength; });
  event = event.first(std::min<std::size_t>(event.size(), kStrings));
  std::ranges::stable_sort(event, {}, [&](std::size_t i) { return notes[i].pitch; });
  return event;
}

void endWhereTheNextStarts(std::span<Note> notes, const Order& order) {
  std::array<Note*, kStrings> last{};
  for (const std::size_t i : order) {
    if (notes[i].string < 0) continue;
    Note*& before = last[static_cast<std::size_t>(notes[i].string)];
    if (before) before->end = std::min(before->end, notes[i].onset);
    before = &notes[i];
  }
}

}  // namespace

Fingering::Fingering(const OpenStrings& open, const FingeringOptions& options)
    : Fingering(open, options, FingeringCosts::of(options)) {}

Fingering::Fingering(const OpenStrings& open, const FingeringOptions& options,
                     const FingeringCosts& costs)
    : m_open(open), m_frets(options.frets - options.capo), m_capo(options.capo), m_costs(costs) {
  assert(options.capo >= 0 && m_frets >= 0 && options.frets <= FingeringOptions::kMostFrets);
  for (int& pitch : m_open) pitch += options.capo;
}

void Fingering::place(std::span<Note> notes) const {
  Order order = byOnset(notes);
  Order played;
  FingeringSearch search(m_open, m_frets, m_costs, notes);
  for (std::span<std::size_t> rest = order; !rest.empty();) {
    const auto event = nextEvent(rest, notes);
    rest = rest.subspan(event.size());
    const auto grip = playable(event, notes);
    search.add(grip);
    played.insert(played.end(), grip.begin(), grip.end());
  }
  for (Note& note : notes) note.string = note.fret = -1;
  const auto strings = search.strings();
  for (std::size_t i = 0; i < played.size(); ++i) {
    if (strings[i] == Grip::kNone) continue;
    Note& note = notes[played[i]];
    note.string = strings[i];
    note.fret = note.pitch - m_open[static_cast<std::size_t>(strings[i])] + m_capo;
  }
  endWhereTheNextStarts(notes, byOnset(notes));
}

}  // namespace korvel::precise
