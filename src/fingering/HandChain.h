// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "fingering/Events.h"
#include "fingering/FingeringOptions.h"
#include "fingering/HandScores.h"
#include "fingering/Note.h"
#include "fingering/grips/GripList.h"
#include "platform/loop/Slices.h"

namespace korvel::fingering {

/// One way to play an event, and what is known of it.
struct Choice {
  Grip grip;
  double probability = 0;  ///< After a pass: that the hand takes it.
  double habit = 0;        ///< Score that the rest of the piece gives it, for the next pass.
};

/// A hand on its way through the events of a piece: all that it may do at each, and how probable
/// each is, given everything before and after it. Time and memory grow with the number of events.
class HandChain {
 public:
  /// Open strings and frets with the capo on; positions, by time and the first of them before all,
  /// count from there too. All of these are read as long as the chain lives.
  HandChain(const OpenPitches& open, int frets, const Settled& settled, const Events& events,
            std::span<const Note> notes);

  /// Before the list: how much speaks for the open position at each event, 0..1, where a melody's
  /// hand may be anywhere.
  void drawToTheNut(std::vector<double> byEvent) { m_openPosition = std::move(byEvent); }
  /// Lists what the hand may do; before any pass.
  platform::Slices list();
  /// Finds how probable it is.
  platform::Slices pass();

  /// The logarithm of the sum over all ways through the piece. After a pass.
  double evidence() const { return m_evidence; }

  std::span<const Choice> choices(std::size_t event) const;
  std::span<Choice> choices(std::size_t event);
  /// Where the hand is, in the mean over all that it may do. After a pass.
  double meanPlace(std::size_t event) const { return m_links[event].meanPlace; }
  /// Where it is expected in the next pass, as the events around have it.
  void expectAt(std::size_t event, double place) { m_links[event].home = place; }

 private:
  static constexpr double kNoHome = 0;
  using ByPlace = std::array<double, kLastPlace + 1>;
  using Moves = std::array<ByPlace, kLastPlace + 1>;

  /// An event.
  struct Link {
    std::size_t choice = 0;  ///< Its first one.
    std::size_t step = 0;    ///< Its first factor in m_steps: those from the event before.
    Places places;           ///< All where the hand may be.
    Pace pace = Pace::slow;  ///< Since the event before.
    double home = kNoHome;
    double meanPlace = 0;
  };
  /// Where the states of a choice begin, one for each place from which it can be played.
  struct States {
    std::size_t first = 0;
    Places places;
  };

  std::size_t count(std::size_t event) const {
    return m_links[event + 1].choice - m_links[event].choice;
  }
  std::span<const States> states(std::size_t event) const {
    return std::span(m_states).subspan(m_links[event].choice, count(event));
  }
  Passage passageAt(std::size_t event) const;
  void listChoices(std::size_t event);
  void listStates(const Choice& choice, const Passage& passage, const Position& expected);
  void listSteps(std::size_t event);
  Held held(std::size_t event, const Choice& choice) const;
  const Position& positionAt(std::size_t event) const;
  /// Between two factors in m_steps: from choice to choice, and to the neighbour's next one.
  struct Strides {
    std::size_t choice = 0;
    std::size_t other = 0;
  };

  std::size_t paceAt(std::size_t event) const {
    return static_cast<std::size_t>(m_links[event].pace);
  }
  std::span<double> factors(std::vector<double>& all, std::size_t event) const;
  void weigh(std::size_t event);
  void goForward(std::size_t event);
  void goBack(std::size_t event);
  void look(std::size_t event);
  void moveAll(std::span<const States> choices, std::span<const double> factors, const Moves& moves,
               Places reached);
  void multiply(std::span<const States> choices, const double* steps, Strides strides,
                std::span<double> factors) const;

  const Events& m_events;
  std::span<const Note> m_notes;
  const Settled& m_settled;
  GripList m_gripList;
  std::vector<double> m_openFit;
  std::vector<double> m_openPosition;       ///< Empty where nothing speaks for it.
  std::array<Moves, kPaces> m_moves{};      ///< By pace, from where and to where.
  std::array<Moves, kPaces> m_movesBack{};  ///< By pace, to where and from where.

  std::vector<Link> m_links;  ///< One more than there are events.
  std::vector<Choice> m_choices;
  std::vector<States> m_states;    ///< Of each choice.
  std::vector<double> m_here;      ///< The factor of each state by itself.
  std::vector<double> m_weighed;   ///< The factor of each state with the habits of this pass.
  std::vector<double> m_forward;   ///< Sums over all ways from the first event to each state.
  std::vector<double> m_backward;  ///< Sums over all ways from each state of one event to the end.
  std::vector<ByPlace> m_through;  ///< Of the choices of a neighbour, moved.
  double m_evidence = 0;
  std::vector<double> m_steps;  ///< By choice and choice of the event before.
};

}  // namespace korvel::fingering
