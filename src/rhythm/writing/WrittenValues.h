// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

/// What is needed to write the lengths of notes.
struct ValueSettings {
  bool ternary = false;
  std::function<double(double)> tickOf;  ///< By seconds, from the first beat.
  std::span<const int> division;         ///< Of each beat: the ticks from place to place.
};

/// Sets the lengths of events whose ticks and notes are set, and of their notes: to the next event,
/// or as long as they sound where that is clearly shorter. A low note that rings on under others
/// has a length of its own.
void writeValues(std::span<Event> events, std::span<Place> places,
                 std::span<const fingering::Note> notes, const ValueSettings& settings);

}  // namespace korvel::rhythm
