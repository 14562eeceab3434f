// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "music/Neck.h"
#include "precise/Note.h"
#include "precise/fingering/FingeringCosts.h"
#include "precise/fingering/GripList.h"

namespace korvel::precise {

/// The cheapest way to play a succession of events, notes that one grip plays. Keeps the best few
/// hands from event to event, so time and memory grow with the number of events.
class FingeringSearch {
 public:
  /// Open strings and frets with the capo on. The notes are read as long as the search lives.
  FingeringSearch(const OpenPitches& open, int frets, const FingeringCosts& costs,
                  std::span<const Note> notes);

  /// The next event: indices of at most kStrings notes, by rising pitch.
  void add(std::span<const std::size_t> event);
  /// What the best way costs so far, to be compared with other searches for the same events.
  double cost() const { return m_cost; }
  /// The string of each note that was added, in that order; Grip::kNone where it has none.
  std::vector<std::int8_t> strings() const;

 private:
  /// What a hand does after some events, and how it came there.
  struct Hand {
    float cost = 0;
    int place = FingeringCosts::kNowhere;
    std::array<std::int8_t, kStrings> fret{};
    std::array<double, kStrings> end{};  ///< When the last note of each string ends, in seconds.
    std::int32_t step = kStart;
  };
  /// A grip that a hand may take next.
  struct Choice {
    float cost = 0;
    int place = FingeringCosts::kNowhere;
    std::uint16_t hand = 0;
    std::uint16_t grip = 0;
  };
  /// A grip that a kept hand took.
  struct Step {
    std::int32_t before = kStart;
    std::array<std::int8_t, kStrings> string{};
  };
  static constexpr std::int32_t kStart = -1;

  void readEvent(std::span<const std::size_t> event);
  void weighChoices();
  void weigh(std::size_t hand, std::size_t grip);
  void keepBest();
  void keep(const Choice& choice);
  float costOf(const Grip& grip) const;
  float costOfLeaving(const Grip& grip) const;
  float costOfPlace(int from, int to) const;
  float costOfOpenStrings(const Grip& grip, int place) const;
  float costOfCutting(const Hand& hand, const Grip& grip) const;
  Hand after(const Choice& choice) const;
  bool soundAlike(const Hand& a, const Hand& b) const;

  FingeringCosts m_costs;
  std::span<const Note> m_notes;
  GripList m_gripList;

  std::span<const std::size_t> m_event;
  std::span<const Grip> m_grips;
  std::vector<float> m_gripCosts;
  std::array<float, FingeringOptions::kMostFrets> m_shiftCosts{};  ///< By frets that the hand goes.
  double m_cost = 0;  ///< Of the best hand; those of the hands count from it.
  double m_now = 0;   ///< Onset of the event's first note.

  std::vector<Hand> m_hands;
  std::vector<Hand> m_next;
  std::vector<Choice> m_choices;
  float m_least = 0;  ///< The least that a choice costs, so far.
  std::vector<Step> m_steps;
  std::vector<std::size_t> m_sizes;  ///< Notes of each event.
};

}  // namespace korvel::precise
