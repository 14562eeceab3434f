// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/grips/Grip.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// A note of an event, as far as grips are about it.
struct GripNote {
  int pitch = 0;
  bool doubtful = false;             ///< It may be left out though it could be played.
  int string = Settled::kAnyString;  ///< The only one that it is played on.
};

/// All ways to play a few notes: each on a string of its own or on none, no lower pitch on a string
/// tuned higher than that of a higher pitch. Pressed frets span at most five; as few notes are left
/// out as can be, and of two or more also one doubtful note. Where notes stay on strings of which
/// no such grip can be made, they are played as they are, however far that is.
class GripList {
 public:
  static constexpr std::size_t kMostNotes = kStrings;

  GripList(const OpenPitches& open, int frets);

  /// The grips for at most kMostNotes notes of rising pitch, never none. Valid until the next call.
  std::span<const Grip> find(std::span<const GripNote> notes);

 private:
  void list();
  void extend(const Grip& grip, std::size_t note, std::size_t from);
  bool isFree(const Grip& grip, std::size_t note, std::size_t string) const;

  OpenPitches m_open;
  std::array<std::size_t, kStrings> m_byPitch{};
  int m_frets = 0;
  int m_left = 0;  ///< Notes that are to be left out.
  bool m_doubtfulOnly = false;
  bool m_asItIs = false;  ///< Whatever a hand can do.
  std::span<const GripNote> m_notes;
  std::vector<Grip> m_grips;
};

}  // namespace korvel::fingering
