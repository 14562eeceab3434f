// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "rhythm/Reading.h"
#include "rhythm/beats/TrackMultiples.h"
#include "rhythm/judging/ReadingSearch.h"

namespace korvel::rhythm {

/// What wishes leave to be found. Wishes that cannot be are brought to the next that can.
class WishedLimits {
 public:
  /// Times in seconds that are not between these two are no wishes.
  WishedLimits(const Wishes& wishes, double from, double to);

  const ReadingLimits& limits() const { return m_limits; }
  /// Lengths of beats that the tracks of a search need: those that are wished, or half or twice as
  /// long where a search does not reach.
  const BeatLengths& searched() const { return m_searched; }
  /// Beats that a search is told; none if it has other beats than the reading.
  std::span<const double> knownBeats() const { return m_known; }
  bool allows(Division division) const;

 private:
  void setMetre(const Metre& metre);
  void setTempo(double tempo);
  void setTaps(const std::vector<double>& taps);

  ReadingLimits m_limits;
  BeatLengths m_searched{0, 10};
  std::vector<double> m_fixed;
  std::vector<double> m_known;
};

}  // namespace korvel::rhythm
