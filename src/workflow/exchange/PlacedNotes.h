// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "workflow/exchange/TrackNotes.h"

namespace korvel {

class PieceBars;

/// A note at its place in a song on beats.
struct PlacedNote {
  int tick = 0;
  int end = 0;  ///< Behind the tick, and not behind the next note of its string.
  int string = 0;
  int fret = 0;
  double amplitude = 0;
};

/// The notes of a track as the ticks of a song have them, by tick, no two of one string at one.
/// What lies between ticks is put to the next one and counted; so is what finds no place there.
class PlacedNotes {
 public:
  /// notes: those of the track on their strings, as many and in the same order.
  PlacedNotes(const exchange::Track& track, std::span<const fingering::Note> notes,
              const PieceBars& bars);

  const std::vector<PlacedNote>& all() const { return m_notes; }
  const LeftOut& left() const { return m_left; }

 private:
  void partStrikes(const PieceBars& bars);
  void endStrikes(const PieceBars& bars);
  void closeGaps();

  std::vector<PlacedNote> m_notes;
  LeftOut m_left;
};

}  // namespace korvel
