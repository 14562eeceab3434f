// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "arrange/hands/TonePlaces.h"
#include "music/Neck.h"

namespace korvel {

/// How wide a grip is, and whether a hand can hold it.
class HandGrip {
 public:
  explicit HandGrip(const TonePlaces& places);

  /// The narrowest way to play notes of rising pitch, each on a string of its own; the lowest on
  /// the neck among equals. All without a place when there is none. The notes of the open strings
  /// count as those to be played do.
  static TonePlaces narrowest(std::span<const int> notes, const OpenPitches& open, int frets);

  /// Every tone has a place.
  bool isComplete() const { return m_isComplete; }
  bool hasOneToneAString() const { return m_hasOneToneAString; }
  /// Frets from the lowest to the highest pressed one.
  int width() const { return m_highest - m_lowest; }
  /// It is complete, with one tone a string, no more than five frets wide, and four fingers are
  /// enough, the first lying across where no open string sounds above it.
  bool isPlayable() const;

 private:
  bool m_isComplete = true;
  bool m_hasOneToneAString = true;
  int m_lowest = 0;  ///< Pressed fret; 0 when none is.
  int m_highest = 0;
  int m_fingers = 0;
};

}  // namespace korvel
