// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "music/Neck.h"
#include "precise/fingering/FingeringOptions.h"

namespace korvel::precise {

/// One way to play notes that start together.
struct Grip {
  static constexpr std::int8_t kNone = -1;

  std::array<std::int8_t, kStrings> fret{};    ///< By string; kNone for strings left alone.
  std::array<std::int8_t, kStrings> string{};  ///< By note; kNone for a note that is not played.
  int lowest = 0;                              ///< The lowest pressed fret; 0 when none is.
  int highest = 0;
  int sum = 0;   ///< All frets added up.
  int open = 0;  ///< Open strings in it.
  int gaps = 0;  ///< Strings left alone between the outer ones.
  int left = 0;  ///< Notes that are not played.
};

/// All ways to play a few notes: each on a string of its own or on none, no lower pitch on a string
/// tuned higher than that of a higher pitch, as few notes left out as can be, and one more of a
/// chord.
class GripList {
 public:
  static constexpr std::size_t kMostNotes = kStrings;

  GripList(const OpenPitches& open, int frets);

  /// The grips for at most kMostNotes pitches, rising. Valid until the next call.
  std::span<const Grip> find(std::span<const int> pitches);

 private:
  void extendAll();
  void extend(const Grip& grip, std::size_t note, std::size_t from);

  OpenPitches m_open;
  std::array<std::size_t, kStrings> m_byPitch{};
  int m_frets = 0;
  int m_most = 0;  ///< Notes that may be left out.
  std::span<const int> m_pitches;
  std::vector<Grip> m_grips;
};

}  // namespace korvel::precise
