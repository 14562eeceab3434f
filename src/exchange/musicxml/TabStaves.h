// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "exchange/WrittenScore.h"

namespace korvel::exchange {

/// What a staff says of its strings.
struct TabStaff {
  int lines = 0;  ///< 0 where it does not say.
  int capo = 0;
  std::map<int, int> tuning{};  ///< MIDI numbers by the line, from 1 for the lowest one.
};

/// A note as a staff has it, with its place on the neck as it is written there.
struct StaffNote {
  WrittenNote written;
  int staff = 1;
  int string = 0;  ///< 1 is the highest one; 0 where it does not say.
  int fret = -1;
  bool isDead = false;  ///< Struck without a tone.
};

struct StaffMeasure {
  std::vector<StaffNote> notes;
  std::vector<ChordName> names;
};

/// The part of these staves. Of two staves that show the same music the one with frets counts;
/// places on the neck are kept where they agree with what sounds, in the tuning that the staff
/// says, or else in one that all of them agree with. What is not kept is added to what
/// is left of the track.
WrittenPart partOf(Track track, const std::map<int, TabStaff>& staves,
                   std::vector<StaffMeasure> measures);

}  // namespace korvel::exchange
