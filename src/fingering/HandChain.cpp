// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/HandChain.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <iterator>

#include "fingering/DoubtfulOctaves.h"
#include "fingering/open/OpenStringFit.h"

namespace korvel::fingering {
namespace {

/// For a note that is left out, times its probability.
constexpr double kLeft = -6;

/// For each fret of the hand that is further away from the expected one than a neighbour.
constexpr double kPerFretFromExpected = -1.5;
constexpr int kNear = 1;
/// For each fret away from the one that it is drawn to, up to so many.
constexpr double kPerFretFromDrawn = -.15;
constexpr int kFarFromDrawn = 6;
/// For each fret away from where the events around have it, up to so many.
constexpr double kPerFretFromHome = -.3;
constexpr double kFarFromHome = 5;

/// Sums of logarithms would need one for each: the factors are brought back to a sum of 1 at each
/// event instead, so that they neither vanish nor grow. Answers what the sum was.
double normalise(std::span<double> factors) {
  double sum = 0;
  for (const double factor : factors) sum += factor;
  for (double& factor : factors) factor /= sum;
  return sum;
}

std::size_t at(int place) { return static_cast<std::size_t>(place); }

double scoreOfLeft(const Grip& grip, std::span<const std::size_t> event,
                   std::span<const Note> notes) {
  double score = 0;
  for (std::size_t i = 0; i < event.size(); ++i)
    if (grip.string[i] == Grip::kNone)
      score += kLeft * static_cast<double>(notes[event[i]].probability);
  return score;
}

double scoreOfExpected(const Position& expected, int place) {
  const int far = std::abs(place - expected.fret);
  if (expected.kind == Position::Kind::anywhere) return 0;
  if (expected.kind == Position::Kind::towards)
    return kPerFretFromDrawn * std::min(far, kFarFromDrawn);
  return kPerFretFromExpected * std::max(0, far - kNear);
}

}  // namespace

HandChain::HandChain(const OpenPitches& open, int frets, const Settled& settled,
                     const Events& events, std::span<const Note> notes)
    : m_events(events),
      m_notes(notes),
      m_settled(settled),
      m_gripList(open, frets),
      m_openFit(openStringFit(events, notes, open)) {
  for (std::size_t pace = 0; pace < kPaces; ++pace)
    for (int from = kFirstPlace; from <= kLastPlace; ++from)
      for (int to = kFirstPlace; to <= kLastPlace; ++to)
        m_moves[pace][at(from)][at(to)] = m_movesBack[pace][at(to)][at(from)] =
            std::exp(scoreOfMove(from, to, Pace{static_cast<int>(pace)}));
}

platform::Slices HandChain::list() {
  m_links.resize(m_events.size() + 1);
  for (std::size_t event = 0; event < m_events.size(); ++event) {
    listChoices(event);
    if (event > 0) listSteps(event);
    co_yield static_cast<double>(event) / static_cast<double>(m_events.size());
  }
  m_weighed.resize(m_here.size());
  m_forward.resize(m_here.size());
}

/// Where open strings fit badly, in keys of many flats or sharps, little speaks for the open
/// position.
Passage HandChain::passageAt(std::size_t event) const {
  Passage passage{m_events.isOfLine(event), m_openFit[event]};
  if (!m_openPosition.empty() && positionAt(event).kind == Position::Kind::anywhere)
    passage.openPosition = m_openPosition[event] * std::clamp(1 + m_openFit[event], 0.0, 1.0);
  return passage;
}

void HandChain::listChoices(std::size_t event) {
  std::array<GripNote, GripList::kMostNotes> notes;
  const auto indices = m_events.notes(event);
  for (std::size_t i = 0; i < indices.size(); ++i) {
    const int string = m_settled.stringOf(indices[i]);
    const bool doubtful =
        m_notes[indices[i]].probability < kSureNote && string == Settled::kAnyString;
    notes[i] = {m_notes[indices[i]].pitch, doubtful, string};
  }
  const Passage passage = passageAt(event);
  Link& link = m_links[event];
  link.choice = m_choices.size();
  link.places = {kLastPlace, kFirstPlace};
  for (const Grip& grip : m_gripList.find(std::span(notes).first(indices.size()))) {
    m_choices.push_back({grip});
    listStates(m_choices.back(), passage, positionAt(event));
    const double left = std::exp(scoreOfLeft(grip, indices, m_notes));
    for (double& here : std::span(m_here).subspan(m_states.back().first)) here *= left;
    link.places.first = std::min(link.places.first, m_states.back().places.first);
    link.places.last = std::max(link.places.last, m_states.back().places.last);
  }
  m_links[event + 1].choice = m_choices.size();
}

void HandChain::listStates(const Choice& choice, const Passage& passage, const Position& expected) {
  const Places places = placesOf(choice.grip);
  m_states.push_back({m_here.size(), places});
  const double score = scoreOf(choice.grip, passage);
  for (int place = places.first; place <= places.last; ++place)
    m_here.push_back(
        std::exp(score + scoreAt(place, choice.grip, passage) + scoreOfExpected(expected, place)));
}

const Position& HandChain::positionAt(std::size_t event) const {
  const auto& positions = m_settled.positions;
  const auto next =
      std::ranges::upper_bound(positions, m_events.onset(event), {}, &PositionMark::from);
  return std::prev(next)->position;
}

void HandChain::listSteps(std::size_t event) {
  Link& link = m_links[event];
  link.step = m_steps.size();
  link.pace = paceOf(m_events.onset(event) - m_events.onset(event - 1));
  for (const Choice& to : choices(event))
    for (const Choice& from : choices(event - 1))
      m_steps.push_back(std::exp(scoreOfStep(held(event - 1, from), held(event, to), m_notes)));
}

Held HandChain::held(std::size_t event, const Choice& choice) const {
  return {&choice.grip, m_events.notes(event), m_events.onset(event)};
}

std::span<const Choice> HandChain::choices(std::size_t event) const {
  return std::span(m_choices).subspan(m_links[event].choice, count(event));
}

std::span<Choice> HandChain::choices(std::size_t event) {
  return std::span(m_choices).subspan(m_links[event].choice, count(event));
}

platform::Slices HandChain::pass() {
  const std::size_t size = m_events.size();
  m_evidence = 0;
  const auto share = [size](std::size_t done) {
    return static_cast<double>(done) / static_cast<double>(2 * size);
  };
  for (std::size_t event = 0; event < size; ++event) {
    weigh(event);
    goForward(event);
    co_yield share(event);
  }
  for (std::size_t event = size; event-- > 0;) {
    goBack(event);
    look(event);
    co_yield share(2 * size - event);
  }
}

/// What a state is worth in this pass.
void HandChain::weigh(std::size_t event) {
  const Link& link = m_links[event];
  ByPlace atHome;
  atHome.fill(1);
  if (link.home != kNoHome)
    for (int place = link.places.first; place <= link.places.last; ++place)
      atHome[at(place)] =
          std::exp(kPerFretFromHome * std::min(std::abs(place - link.home), kFarFromHome));
  std::size_t state = states(event).front().first;
  for (const Choice& choice : choices(event)) {
    const double habit = std::exp(choice.habit);
    const Places places = m_states[static_cast<std::size_t>(&choice - m_choices.data())].places;
    for (int place = places.first; place <= places.last; ++place, ++state)
      m_weighed[state] = m_here[state] * habit * atHome[at(place)];
  }
}

std::span<double> HandChain::factors(std::vector<double>& all, std::size_t event) const {
  const States& last = states(event).back();
  const std::size_t first = states(event).front().first;
  const std::size_t end = last.first + static_cast<std::size_t>(last.places.count());
  return std::span(all).subspan(first, end - first);
}

void HandChain::goForward(std::size_t event) {
  const auto here = factors(m_forward, event);
  std::ranges::copy(factors(m_weighed, event), here.begin());
  if (event > 0) {
    const Link& link = m_links[event];
    moveAll(states(event - 1), factors(m_forward, event - 1), m_moves[paceAt(event)], link.places);
    multiply(states(event), &m_steps[link.step], {count(event - 1), 1}, here);
  }
  m_evidence += std::log(normalise(here));
}

/// m_backward, of the event after this one, becomes that of this one.
void HandChain::goBack(std::size_t event) {
  const std::size_t size = factors(m_weighed, event).size();
  if (event + 1 < m_events.size()) {
    const Link& next = m_links[event + 1];
    std::ranges::transform(m_backward, factors(m_weighed, event + 1), m_backward.begin(),
                           std::multiplies());
    moveAll(states(event + 1), m_backward, m_movesBack[paceAt(event + 1)], m_links[event].places);
    m_backward.assign(size, 1);
    multiply(states(event), &m_steps[next.step], {1, count(event)}, m_backward);
  } else {
    m_backward.assign(size, 1);
  }
  normalise(m_backward);
}

/// Brings the states of a neighbour's choices to the places of an event.
void HandChain::moveAll(std::span<const States> choices, std::span<const double> factors,
                        const Moves& moves, Places reached) {
  m_through.resize(choices.size());
  const double* factor = factors.data();
  for (std::size_t c = 0; c < choices.size(); ++c) {
    m_through[c].fill(0);
    for (int place = choices[c].places.first; place <= choices[c].places.last; ++place, ++factor)
      for (int to = reached.first; to <= reached.last; ++to)
        m_through[c][at(to)] += *factor * moves[at(place)][at(to)];
  }
}

/// Multiplies each state by what reaches it from all choices of the neighbour.
void HandChain::multiply(std::span<const States> choices, const double* steps, Strides strides,
                         std::span<double> factors) const {
  double* factor = factors.data();
  for (std::size_t c = 0; c < choices.size(); ++c)
    for (int place = choices[c].places.first; place <= choices[c].places.last; ++place, ++factor) {
      double sum = 0;
      for (std::size_t other = 0; other < m_through.size(); ++other)
        sum += steps[c * strides.choice + other * strides.other] * m_through[other][at(place)];
      *factor *= sum;
    }
}

/// What both ways together say of the event.
void HandChain::look(std::size_t event) {
  const auto forward = factors(m_forward, event);
  double all = 0;
  double places = 0;
  std::size_t state = 0;
  for (std::size_t c = 0; c < count(event); ++c) {
    double& probability = choices(event)[c].probability;
    probability = 0;
    const Places from = states(event)[c].places;
    for (int place = from.first; place <= from.last; ++place, ++state) {
      const double factor = forward[state] * m_backward[state];
      probability += factor;
      places += factor * place;
    }
    all += probability;
  }
  for (Choice& choice : choices(event)) choice.probability /= all;
  m_links[event].meanPlace = places / all;
}

}  // namespace korvel::fingering
