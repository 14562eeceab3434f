// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/fingering/FingeringSearch.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace korvel::precise {
namespace {

/// Hands kept from event to event: twice what the best way of all was ever seen to need.
constexpr std::size_t kBeam = 32;
/// A choice that costs this much more than another was never seen to be part of the best way.
constexpr float kHopeless = 10;
/// The cheapest choices, from which they are taken: many sound alike.
constexpr std::size_t kLooked = 8 * kBeam;
constexpr int kFingers = 4;
constexpr int kHighPlace = 10;
/// The hand at this place leaves open strings their ease; two frets above it has lost all of it.
constexpr int kLastOpenPlace = 3;
constexpr float kFretsAway = 2;
/// A far shift is harder to hit than several near ones.
constexpr float kLeap = 1.2F;
/// Seconds that a note may lose for nothing when its string is needed, and beyond these until the
/// loss costs all. Ends of notes are heard late rather than early.
constexpr double kCutFree = 0.15;
constexpr double kCutFull = 0.3;

float beyond(int value, int limit) { return static_cast<float>(std::max(0, value - limit)); }

/// Places of the hand, from the first to the last.
struct Places {
  int first = FingeringCosts::kNowhere;
  int last = FingeringCosts::kNowhere;
};

/// Those from which the fingers reach: where the hand is if that is one of them, else all, as the
/// nearest may be far from what follows. The lowest fret when there is none.
Places placesFor(const Grip& grip, int from) {
  if (grip.highest == 0) return {from, from};
  const int first = std::min(std::max(1, grip.highest - (kFingers - 1)), grip.lowest);
  const bool stays = from >= first && from <= grip.lowest;
  return stays ? Places{from, from} : Places{first, grip.lowest};
}

}  // namespace

FingeringSearch::FingeringSearch(const OpenPitches& open, int frets, const FingeringCosts& costs,
                                 std::span<const Note> notes)
    : m_costs(costs), m_notes(notes), m_gripList(open, frets), m_hands(1) {
  m_hands.front().place = costs.home;
  m_hands.front().fret.fill(Grip::kNone);
  for (std::size_t far = 1; far < m_shiftCosts.size(); ++far)
    m_shiftCosts[far] =
        costs.shift + costs.perFretShifted * std::pow(static_cast<float>(far), kLeap);
}

void FingeringSearch::add(std::span<const std::size_t> event) {
  readEvent(event);
  weighChoices();
  keepBest();
}

void FingeringSearch::readEvent(std::span<const std::size_t> event) {
  m_event = event;
  m_sizes.push_back(event.size());
  m_now = std::numeric_limits<double>::max();
  std::array<int, kStrings> pitches{};
  for (std::size_t i = 0; i < event.size(); ++i) {
    pitches[i] = m_notes[event[i]].pitch;
    m_now = std::min(m_now, m_notes[event[i]].onset);
  }
  m_grips = m_gripList.find(std::span(pitches).first(event.size()));
  m_gripCosts.clear();
  for (const Grip& grip : m_grips) m_gripCosts.push_back(costOf(grip));
}

// A tie goes to the choice that was found first, so that every run answers the same.
void FingeringSearch::weighChoices() {
  m_choices.clear();
  m_least = std::numeric_limits<float>::infinity();
  for (std::size_t hand = 0; hand < m_hands.size(); ++hand)
    for (std::size_t grip = 0; grip < m_grips.size(); ++grip) weigh(hand, grip);
  const auto cheaper = [](const Choice& a, const Choice& b) {
    return std::tie(a.cost, a.hand, a.grip, a.place) < std::tie(b.cost, b.hand, b.grip, b.place);
  };
  const auto looked = std::min(kLooked, m_choices.size());
  const auto end = m_choices.begin() + static_cast<std::ptrdiff_t>(looked);
  std::ranges::nth_element(m_choices, end, cheaper);
  m_choices.resize(looked);
  std::ranges::sort(m_choices, cheaper);
}

void FingeringSearch::weigh(std::size_t hand, std::size_t grip) {
  const Hand& from = m_hands[hand];
  const Grip& to = m_grips[grip];
  float cost = from.cost + m_gripCosts[grip];
  if (cost > m_least + kHopeless) return;
  cost += costOfCutting(from, to);
  const Places places = placesFor(to, from.place);
  for (int place = places.first; place <= places.last; ++place) {
    const float all = cost + costOfPlace(from.place, place) + costOfOpenStrings(to, place);
    if (all > m_least + kHopeless) continue;
    m_least = std::min(m_least, all);
    m_choices.push_back(
        {all, place, static_cast<std::uint16_t>(hand), static_cast<std::uint16_t>(grip)});
  }
}

void FingeringSearch::keepBest() {
  m_next.clear();
  for (const Choice& choice : m_choices) {
    if (m_next.size() == kBeam) break;
    keep(choice);
  }
  std::swap(m_hands, m_next);
  // Sums that grow for an hour would lose what the single grips differ by.
  const float least = m_hands.front().cost;
  for (Hand& hand : m_hands) hand.cost -= least;
  m_cost += least;
}

void FingeringSearch::keep(const Choice& choice) {
  Hand hand = after(choice);
  if (std::ranges::any_of(m_next, [&](const Hand& kept) { return soundAlike(kept, hand); })) return;
  hand.step = static_cast<std::int32_t>(m_steps.size());
  m_steps.push_back({m_hands[choice.hand].step, m_grips[choice.grip].string});
  m_next.push_back(hand);
}

float FingeringSearch::costOf(const Grip& grip) const {
  const int span = grip.highest - grip.lowest;
  return m_costs.perFret * static_cast<float>(grip.sum) +
         m_costs.wideSpan * beyond(span, kFingers - 1) + m_costs.hardSpan * beyond(span, kFingers) +
         m_costs.gap * static_cast<float>(grip.gaps) + costOfLeaving(grip);
}

float FingeringSearch::costOfLeaving(const Grip& grip) const {
  float cost = 0;
  for (std::size_t i = 0; i < m_event.size(); ++i)
    if (grip.string[i] == Grip::kNone) cost += m_costs.leave * m_notes[m_event[i]].probability;
  return cost;
}

float FingeringSearch::costOfPlace(int from, int to) const {
  if (to == FingeringCosts::kNowhere) return 0;
  float cost = m_costs.perFretHigh * beyond(to, kHighPlace) +
               m_costs.perFretFromHome * beyond(std::abs(to - m_costs.home), m_costs.homeSlack);
  if (m_event.size() > 1)
    cost +=
        m_costs.perFretOfChord * static_cast<float>(m_event.size() * static_cast<std::size_t>(to));
  if (from != FingeringCosts::kNowhere)
    cost += m_shiftCosts[static_cast<std::size_t>(std::abs(to - from))];
  return cost;
}

float FingeringSearch::costOfOpenStrings(const Grip& grip, int place) const {
  const auto open = static_cast<float>(grip.open);
  if (place > kLastOpenPlace)
    return open * m_costs.openAway * std::min(1.0F, beyond(place, kLastOpenPlace) / kFretsAway);
  if (place > 1) return 0;
  return open * (m_event.size() == 1 ? m_costs.openAtHome : m_costs.openOfChord);
}

float FingeringSearch::costOfCutting(const Hand& hand, const Grip& grip) const {
  float cost = 0;
  for (std::size_t s = 0; s < kStrings; ++s) {
    if (grip.fret[s] == Grip::kNone || grip.fret[s] == hand.fret[s]) continue;
    const double lost = (hand.end[s] - m_now - kCutFree) / kCutFull;
    cost += m_costs.cutOff * static_cast<float>(std::clamp(lost, 0.0, 1.0));
  }
  return cost;
}

FingeringSearch::Hand FingeringSearch::after(const Choice& choice) const {
  Hand hand = m_hands[choice.hand];
  const Grip& grip = m_grips[choice.grip];
  hand.cost = choice.cost;
  hand.place = choice.place;
  for (std::size_t i = 0; i < m_event.size(); ++i) {
    if (grip.string[i] == Grip::kNone) continue;
    const auto s = static_cast<std::size_t>(grip.string[i]);
    hand.fret[s] = grip.fret[s];
    hand.end[s] = m_notes[m_event[i]].end;
  }
  return hand;
}

/// Whether all that follows costs both the same.
bool FingeringSearch::soundAlike(const Hand& a, const Hand& b) const {
  if (a.place != b.place) return false;
  for (std::size_t s = 0; s < kStrings; ++s) {
    const bool sounds = a.end[s] > m_now;
    if (sounds != (b.end[s] > m_now) || (sounds && a.fret[s] != b.fret[s])) return false;
  }
  return true;
}

std::vector<std::int8_t> FingeringSearch::strings() const {
  std::vector<std::int8_t> found;
  std::int32_t step = m_hands.front().step;
  for (std::size_t event = m_sizes.size(); event-- > 0;) {
    const Step& taken = m_steps[static_cast<std::size_t>(step)];
    for (std::size_t i = m_sizes[event]; i-- > 0;) found.push_back(taken.string[i]);
    step = taken.before;
  }
  std::ranges::reverse(found);
  return found;
}

}  // namespace korvel::precise
