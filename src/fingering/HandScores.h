// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "fingering/Note.h"
#include "fingering/grips/Grip.h"

namespace korvel::fingering {

/// Places of the hand: the fret of the first finger, counted from the capo.
inline constexpr int kFirstPlace = 1;
inline constexpr int kLastPlace = 16;

/// From a first place to a last one.
struct Places {
  int first = kFirstPlace;
  int last = kLastPlace;

  int count() const { return last - first + 1; }
};

/// The places from which a hand plays a grip.
Places placesOf(const Grip& grip);

/// What kind of event a grip belongs to.
struct Passage {
  bool line = false;  ///< One note of a melody.
  /// How well open strings fit the notes around it: 0 where they fit as well as any note does.
  double openFit = 0;
  /// How much speaks for the open position beside what hands like anywhere, 0..1.
  double openPosition = 0;
};

// Scores are logarithms of factors: of two ways to play a piece, the one with the higher sum is the
// likelier one.

/// Of a grip, wherever the hand is.
double scoreOf(const Grip& grip, const Passage& passage);
/// Of the hand at a place while it holds a grip, on top.
double scoreAt(int place, const Grip& grip, const Passage& passage);

/// Time between two events, as far as a hand feels it.
enum class Pace { fast, medium, slow };
inline constexpr int kPaces = 3;
/// seconds: from onset to onset.
Pace paceOf(double seconds);
/// Of a move of the hand.
double scoreOfMove(int from, int to, Pace pace);

/// What a hand plays at one event.
struct Held {
  const Grip* grip = nullptr;
  std::span<const std::size_t> event;  ///< Indices of its notes, by rising pitch.
  double onset = 0;                    ///< Of the event, in seconds.
};
/// Of taking one grip after another.
double scoreOfStep(const Held& from, const Held& to, std::span<const Note> notes);

}  // namespace korvel::fingering
