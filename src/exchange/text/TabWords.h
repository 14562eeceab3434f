// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "exchange/text/TextRows.h"
#include "music/Neck.h"

namespace korvel::exchange {

/// A time signature.
struct Metre {
  int beats = 4;
  int beatType = 4;

  bool operator==(const Metre&) const = default;
};

/// What the prose of a tablature says. Of what is said twice the first counts.
struct TabWords {
  std::string title{};
  std::string artist{};
  std::optional<OpenPitches> open{};  ///< MIDI numbers of the open strings, the lowest first.
  std::optional<int> capo{};
  std::optional<double> tempo{};  ///< Quarters a minute.
  bool isSwung = false;
  std::optional<Metre> metre{};

  /// Reads a line that is no string.
  void read(const Row& row);
};

/// "Drop D", "half a step down", "DADGAD", "D A D G B E" from either end; none for other words.
std::optional<OpenPitches> tuningNamed(const Row& words);

/// "3/4" where it stands alone in the text from there on.
std::optional<Metre> metreAt(std::string_view words, std::size_t column);

}  // namespace korvel::exchange
