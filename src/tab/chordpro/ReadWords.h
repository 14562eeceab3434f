// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// What stands between blanks.
std::vector<std::string> wordsIn(std::string_view text);

/// The number that a text begins with, whatever follows; none for one that is not finite.
std::optional<double> numberIn(std::string_view text);

/// The whole number that a text begins with, whatever follows, at most so large; none for one below
/// zero.
std::optional<int> wholeIn(std::string_view text, int most);

}  // namespace korvel
