// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "exchange/text/SystemBars.h"

namespace korvel::exchange {

/// When what is written in a bar comes, in grains from its beginning.
struct TimedBar {
  struct Span {
    std::int64_t at = 0;
    std::int64_t end = 0;

    bool operator==(const Span&) const = default;
  };
  struct Place {
    std::ptrdiff_t column;
    std::int64_t at;
  };
  Metre metre{};
  std::int64_t length = 0;  ///< Less than the metre says in a pick-up.
  std::vector<Span> struck{};
  std::vector<Place> places{};  ///< Of all that has a column: what is struck, signs, marks.
  std::int64_t goesOn = 0;      ///< So long the last tones of the bar before sound on in it.
};

/// Grains of a bar.
std::int64_t lengthOf(const Metre& metre);

/// By signs of rhythm where all notes have them and bars are full, by counted beats, and else by
/// the columns: those of a bar are divided evenly, where most bars have a column or some before the
/// first note and behind the last beat; what does not come to lie on sixteenths or triplets then is
/// brought to the nearest. What is struck sounds until the next.
/// told: the metre, if the text says it; else 4/4. isOwn: signs of rhythm are as the program writes
/// them.
std::vector<TimedBar> timesOf(const std::vector<TabBar>& bars, std::optional<Metre> told,
                              bool isOwn);

/// The same of systems without bar lines, where what is struck most often lasts an eighth.
std::vector<TimedBar> timesWithoutBars(const std::vector<TabBar>& systems, bool isOwn);

}  // namespace korvel::exchange
