// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "exchange/text/TextRows.h"

namespace korvel::exchange {

/// The name of a string.
struct StringName {
  int note = 0;                 ///< Pitch class.
  std::optional<int> octave{};  ///< As middle C is C4.
  bool isSmall = false;         ///< "e", by which many tell the highest string from the lowest one.

  bool operator==(const StringName&) const = default;
};

/// A line of a tablature that is one string.
struct StringLine {
  std::optional<StringName> name{};
  std::size_t column = 0;  ///< Of its row, where the body begins.
  Row body;                ///< Behind the name and the first bar line.
  Row remark{};            ///< Behind the last bar line, such as "x2".
  bool isBarred = false;   ///< A bar line stands in it or at its end.
};

/// The name that begins at a column, and the column behind it.
struct FoundName {
  StringName name;
  std::size_t end;
};
std::optional<FoundName> nameAt(std::u32string_view row, std::size_t column);

/// None for words, also for those with a bar and a dash among them.
std::optional<StringLine> stringLineOf(const Row& row);

/// Whether a row may be what a mailer broke off a string's line.
bool mayBeBrokenOff(const Row& row);

}  // namespace korvel::exchange
