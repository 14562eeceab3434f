// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

namespace korvel {

/// What happens in a bar at one place, for so many ticks.
struct BarEvent {
  enum class Kind { struck, held, rest };  ///< Held: nothing is struck, but tones go on.
  int ticks;
  Kind kind = Kind::struck;
};

/// A note or a rest as it is written.
struct BarSign {
  int event;  ///< Index of the event; a long one takes several signs.
  int from;   ///< Tick of the bar.
  int ticks;
  int value;  ///< 1 a whole note, 2 a half, ... 32.
  bool isDotted;
  bool isRest;
  bool isTied;                 ///< It only lengthens the sign before, or what was struck earlier.
  std::optional<int> beam;     ///< Signs of a bar with the same number share a beam.
  std::optional<int> triplet;  ///< Signs with the same number stand under one "3".

  /// How many flags or beams it has.
  int flags() const;
};

/// Its written value, without regard to a triplet; a thirty-second counts as a sixteenth.
int sixteenthsOf(const BarSign& sign);

/// The signs of a bar. Notes are split and beamed so that its beats show: quarters, in compound
/// time dotted ones. A beat with places off the sixteenths is a triplet. first: tick of the bar at
/// which the events begin, not 0 in a pick-up. Lengths that no sign has get the nearest.
std::vector<BarSign> signsOf(const std::vector<BarEvent>& events, int beat, int beattype,
                             int first = 0);

}  // namespace korvel
