// SPDX-License-Identifier: GPL-3.0-or-later
#include "fingering/Habits.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace korvel::fingering {
namespace {

/// What speaks for a string, or a grip, that is always taken around.
constexpr double kHabit = 2.5;
/// Seconds in which memory fades, and beyond which nothing is looked at.
constexpr double kFadingOfNote = 5;
constexpr double kReachOfNote = 10;
/// A note counts for so much more with each of its neighbours, up to so many on either side, that
/// has the pitch of the other's: the same phrase is played in the same place.
constexpr double kPerNeighbour = 3;
constexpr std::size_t kMostNeighbours = 3;
constexpr double kFadingOfChord = 8;
constexpr double kReachOfChord = 30;
constexpr double kFadingOfPlace = 4;

/// Calls seen(other, weight) for the others around one of them; they are in order of time.
template <typename TimeOf, typename Seen>
void lookAround(std::span<const std::size_t> all, std::size_t place, double fading, double reach,
                const TimeOf& timeOf, const Seen& seen) {
  const double now = timeOf(all[place]);
  const auto look = [&](std::size_t other) {
    const double far = std::abs(timeOf(other) - now);
    if (far < reach) seen(other, std::exp(-far / fading));
    return far < reach;
  };
  for (std::size_t i = place; i-- > 0;)
    if (!look(all[i])) break;
  for (std::size_t i = place + 1; i < all.size(); ++i)
    if (!look(all[i])) break;
}

/// Of a weighted mean: one that rests on little counts for less.
double trustedShare(double weights) { return std::min(1.0, weights) / std::max(weights, 1e-9); }

}  // namespace

Habits::Habits(const Events& events, std::span<const Note> notes)
    : m_events(events), m_notes(notes) {
  for (std::size_t event = 0; event < events.size(); ++event) {
    m_first.push_back(m_played.size());
    for (const std::size_t note : events.notes(event)) {
      auto& same = m_ofPitch[notes[note].pitch];
      m_placeOfPitch.push_back(same.size());
      same.push_back(m_played.size());
      m_played.push_back({note, {}});
    }
    auto& same = m_ofChord[pitchesOf(event)];
    m_placeOfChord.push_back(same.size());
    same.push_back(event);
  }
}

Habits::Pitches Habits::pitchesOf(std::size_t event) const {
  Pitches pitches{};
  std::ranges::transform(m_events.notes(event), pitches.begin(), [this](std::size_t note) {
    return static_cast<std::int8_t>(m_notes[note].pitch);
  });
  return pitches;
}

platform::Slices Habits::tell(HandChain& chain) {
  const std::size_t size = m_events.size();
  const auto share = [size](std::size_t done) {
    return static_cast<double>(done) / static_cast<double>(2 * size);
  };
  for (std::size_t event = 0; event < size; ++event) {
    readStrings(event, chain);
    co_yield share(event);
  }
  for (std::size_t event = 0; event < size; ++event) {
    tellRepeats(event, chain);
    if (m_events.notes(event).size() > 1) tellChords(event, chain);
    co_yield share(size + event);
  }
  findHomes(chain);
}

void Habits::readStrings(std::size_t event, const HandChain& chain) {
  for (std::size_t i = 0; i < m_events.notes(event).size(); ++i) {
    auto& strings = m_played[m_first[event] + i].strings;
    strings.fill(0);
    for (const Choice& choice : chain.choices(event))
      if (const auto string = choice.grip.string[i]; string != Grip::kNone)
        strings[static_cast<std::size_t>(string)] += choice.probability;
  }
}

double Habits::alikeAround(std::size_t played, std::size_t other) const {
  const auto pitch = [this](std::size_t at) { return m_notes[m_played[at].note].pitch; };
  const std::size_t before = std::min({kMostNeighbours, played, other});
  const std::size_t after =
      std::min(kMostNeighbours, m_played.size() - 1 - std::max(played, other));
  std::size_t alike = 0;
  for (std::size_t i = 1; i <= before && pitch(played - i) == pitch(other - i); ++i) ++alike;
  for (std::size_t i = 1; i <= after && pitch(played + i) == pitch(other + i); ++i) ++alike;
  return 1 + kPerNeighbour * static_cast<double>(alike);
}

/// How usual each string is for a note's pitch around it.
std::array<double, kStrings> Habits::usualStrings(std::size_t played) const {
  std::array<double, kStrings> usual{};
  double weights = 0;
  const auto& same = m_ofPitch.at(m_notes[m_played[played].note].pitch);
  lookAround(
      same, m_placeOfPitch[played], kFadingOfNote, kReachOfNote,
      [this](std::size_t other) { return m_notes[m_played[other].note].onset; },
      [&](std::size_t other, double weight) {
        weight *= alikeAround(played, other);
        weights += weight;
        for (std::size_t s = 0; s < usual.size(); ++s)
          usual[s] += weight * m_played[other].strings[s];
      });
  for (double& string : usual) string *= trustedShare(weights);
  return usual;
}

void Habits::tellRepeats(std::size_t event, HandChain& chain) const {
  for (Choice& choice : chain.choices(event)) choice.habit = 0;
  const auto notes = m_events.notes(event);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const auto usual = usualStrings(m_first[event] + i);
    for (Choice& choice : chain.choices(event))
      if (const auto string = choice.grip.string[i]; string != Grip::kNone)
        choice.habit +=
            kHabit * usual[static_cast<std::size_t>(string)] / static_cast<double>(notes.size());
  }
}

/// The same pitches are listed with the same choices, unless one of the notes is doubtful.
void Habits::tellChords(std::size_t event, HandChain& chain) const {
  const auto choices = chain.choices(event);
  std::vector<double> usual(choices.size());
  double weights = 0;
  lookAround(
      m_ofChord.at(pitchesOf(event)), m_placeOfChord[event], kFadingOfChord, kReachOfChord,
      [this](std::size_t other) { return m_events.onset(other); },
      [&](std::size_t other, double weight) {
        weights += weight;
        const auto others = std::as_const(chain).choices(other);
        for (std::size_t c = 0; c < std::min(choices.size(), others.size()); ++c)
          if (others[c].grip.fret == choices[c].grip.fret)
            usual[c] += weight * others[c].probability;
      });
  for (std::size_t c = 0; c < choices.size(); ++c)
    choices[c].habit += kHabit * trustedShare(weights) * usual[c];
}

/// A mean over all events, those near in time counting most: one sweep each way.
void Habits::findHomes(HandChain& chain) const {
  struct Mean {
    double sum = 0;
    double weights = 0;
    double time = 0;

    void add(double place, double at) {
      const double kept = std::exp(-std::abs(at - time) / kFadingOfPlace);
      sum = sum * kept + place;
      weights = weights * kept + 1;
      time = at;
    }
  };
  std::vector<Mean> before;
  Mean mean;
  for (std::size_t event = 0; event < m_events.size(); ++event) {
    mean.add(chain.meanPlace(event), m_events.onset(event));
    before.push_back(mean);
  }
  mean = {};
  for (std::size_t event = m_events.size(); event-- > 0;) {
    const double place = chain.meanPlace(event);
    mean.add(place, m_events.onset(event));
    chain.expectAt(
        event, (before[event].sum + mean.sum - place) / (before[event].weights + mean.weights - 1));
  }
}

}  // namespace korvel::fingering
