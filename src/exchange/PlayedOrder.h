// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace korvel::exchange {

/// What stands at a written bar and says in which order the bars are played.
struct BarSigns {
  enum class Jump { none, daCapo, dalSegno };
  enum class Until { end, fine, coda };  ///< How far a jump is played.

  bool opensRepeat = false;
  int timesPlayed = 0;   ///< At a closing repeat: how often in all, 2 at least; 0 without one.
  unsigned endings = 0;  ///< Bit n: played in round n + 1 of its repeat; 0 outside of endings.
  bool isSegno = false;
  bool isCoda = false;     ///< Where playing goes on after "to coda".
  bool isToCoda = false;   ///< Left for the coda at its end, once a jump until there was taken.
  bool isFine = false;     ///< The end, once a jump until there was taken.
  Jump jump = Jump::none;  ///< At its end, taken once.
  Until until = Until::end;
};

/// More bars than any music has: repeats within repeats can make as many as one likes of a few.
inline constexpr std::size_t kMostPlayedBars = 20000;

/// Indexes of the written bars as they are played. Signs that lead nowhere are passed over.
/// Throws a UserError where that is more than kMostPlayedBars.
std::vector<std::size_t> playedOrder(std::span<const BarSigns> bars);

}  // namespace korvel::exchange
