// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/fingering/Fingering.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "precise/fingering/Events.h"
#include "precise/fingering/FingeringSearch.h"

namespace korvel::precise {
namespace {

/// A line is taken for one in open position when that costs less than this times the cost of the
/// easiest way. Lines that players chose a higher place for cost three to twelve times as much.
constexpr double kWorthOfOpen = 2.5;

void endWhereTheNextStarts(std::span<Note> notes, std::span<const std::size_t> order) {
  std::array<Note*, kStrings> last{};
  for (const std::size_t i : order) {
    if (notes[i].string < 0) continue;
    Note*& before = last[static_cast<std::size_t>(notes[i].string)];
    if (before) before->end = std::min(before->end, notes[i].onset);
    before = &notes[i];
  }
}

}  // namespace

Fingering::Fingering(const OpenPitches& open, const FingeringOptions& options)
    : Fingering(open, options, FingeringCosts::of(options)) {
  m_guessesOpen = options.position.kind == Position::Kind::anywhere;
}

Fingering::Fingering(const OpenPitches& open, const FingeringOptions& options,
                     const FingeringCosts& costs)
    : m_open(open), m_frets(options.frets - options.capo), m_capo(options.capo), m_costs(costs) {
  assert(options.capo >= 0 && m_frets >= 0 && options.frets <= FingeringOptions::kMostFrets);
  for (int& pitch : m_open) pitch += options.capo;
}

platform::Slices Fingering::placing(std::span<Note> notes) const {
  const Events events(notes);
  const bool tries = m_guessesOpen && events.areOneLine();
  const double shareOfSearch = tries ? 0.5 : 1;
  FingeringSearch best(m_open, m_frets, m_costs, notes);
  platform::Slices searching = search(events, best);
  while (searching.next()) co_yield searching.done() * shareOfSearch;
  if (tries) {
    FingeringSearch open(m_open, m_frets, FingeringCosts::openPosition(), notes);
    searching = search(events, open);
    while (searching.next()) co_yield (1 + searching.done()) * shareOfSearch;
    if (open.cost() < kWorthOfOpen * best.cost()) best = std::move(open);
  }
  assign(events, best, notes);
}

platform::Slices Fingering::search(const Events& events, FingeringSearch& way) {
  auto rest = events.played();
  const auto all = static_cast<double>(rest.size());
  for (const std::size_t size : events.sizes()) {
    way.add(rest.first(size));
    rest = rest.subspan(size);
    co_yield 1 - static_cast<double>(rest.size()) / all;
  }
}

void Fingering::assign(const Events& events, const FingeringSearch& best,
                       std::span<Note> notes) const {
  for (Note& note : notes) note.string = note.fret = -1;
  const auto strings = best.strings();
  for (std::size_t i = 0; i < strings.size(); ++i) {
    if (strings[i] == Grip::kNone) continue;
    Note& note = notes[events.played()[i]];
    note.string = strings[i];
    note.fret = note.pitch - m_open[static_cast<std::size_t>(strings[i])] + m_capo;
  }
  endWhereTheNextStarts(notes, events.byOnset());
}

}  // namespace korvel::precise
