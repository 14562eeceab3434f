// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/text/UserText.h"

namespace korvel {

/// A way to strum a bar, in each metre that songs have.
struct StrumPattern {
  std::string_view name;  ///< As the tool takes it.
  platform::Phrase title;
  // The bar in parts of equal length, a letter each: D strikes all strings downwards, d the upper
  // ones, u the upper ones upwards, b the lowest one, a the one above it; a dot lets all ring on,
  // and a dash damps it. Empty for a stroke on each beat.
  std::string_view twoFour{};
  std::string_view threeFour{};
  std::string_view fourFour{};
  std::string_view sixEight{};
  std::string_view nineEight{};
  std::string_view twelveEight{};

  /// The bar of a metre; "" for one that has no patterns, which is strummed on its beats.
  std::string_view bar(int beat, int beattype) const;
};

/// On the beats, on bar lines only ("none"), then ten patterns.
std::span<const StrumPattern> strumPatterns();
/// Null when there is none of that name.
const StrumPattern* strumPatternNamed(std::string_view name);
/// One stroke on each beat: what is strummed unless something else is asked for.
const StrumPattern& strumOnBeats();

/// A part of a bar in which one chord is held. In ticks.
struct HeldPart {
  int beat = 4;  ///< Its time signature.
  int beattype = 4;
  int barLine = 0;      ///< Before or at `from`.
  int from = 0;         ///< In the bar.
  int to = 0;           ///< At most the end of the bar.
  bool begins = false;  ///< The chord begins there.
};

/// What a stroke strikes.
struct Strike {
  struct String {
    int string;
    int ticks;  ///< Until it is struck or damped again, or the part ends.
  };

  int tick = 0;
  int ticks = 0;                  ///< Until the next one, or until nothing rings.
  double loudness = 1;            ///< Of one over all strings.
  std::vector<String> strings{};  ///< The lowest-sounding first.
};

/// How a pattern strikes a part of a bar, of the grip's strings: bit n for string n. A chord is
/// struck where it begins, but by a pattern that leaves out all beats.
std::vector<Strike> strikesOf(const StrumPattern& pattern, const HeldPart& part, unsigned strings);

}  // namespace korvel
