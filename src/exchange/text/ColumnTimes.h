// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "exchange/text/BarTimes.h"

namespace korvel::exchange {

/// Divides the columns of bars into time.
class ColumnTimes {
 public:
  /// The bars that have nothing but columns, which agree on how bars are written.
  ColumnTimes(const std::vector<const TabBar*>& bars, const Metre& metre);

  /// How odd the places of a bar are in this metre; 0 where all are on beats.
  double strangeness() const { return m_strangeness; }
  TimedBar timesOf(const TabBar& bar) const;
  /// A shorter bar than all others, the columns of which are as wide, is a pick-up.
  bool isPickUp(const TabBar& bar) const;
  TimedBar timesOfPickUp(const TabBar& bar) const;

 private:
  /// What of a bar is no time: columns before the first beat, and behind the end of the last one;
  /// fewer than none where the bar line comes early.
  struct Frame {
    std::ptrdiff_t lead;
    std::ptrdiff_t tail;
  };

  struct Place {
    std::int64_t at;
    double strangeness;
  };

  std::ptrdiff_t columns(const TabBar& bar, const Frame& frame) const;
  double badness(const TabBar& bar, const Frame& frame) const;
  double strangenessOf(const Struck& struck, const Frame& frame, std::ptrdiff_t columns) const;
  double strangenessOf(std::int64_t at) const;
  /// The least strange of the places that may be meant; nowhere where none is on a grid.
  Place placeOf(const Struck& struck, const Frame& frame, std::ptrdiff_t columns) const;
  bool beginsLate(const TabBar& bar, const Frame& frame, std::ptrdiff_t columns) const;
  Frame frameOf(const TabBar& bar) const;
  void findUsual(const std::vector<const TabBar*>& bars);
  TimedBar placed(const TabBar& bar, const Frame& frame, std::ptrdiff_t columns) const;
  std::int64_t rounded(double at, bool inTriplets) const;

  Metre m_metre;
  std::int64_t m_length;
  Frame m_frame{0, 0};
  double m_strangeness = 0;
  std::ptrdiff_t m_usual = 0;  ///< Columns of most bars, 0 where they differ.
};

}  // namespace korvel::exchange
