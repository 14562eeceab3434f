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

}  // namespace korvel
