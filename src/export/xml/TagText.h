// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvel {

/// The text of a tag without the blanks and tabs around it.
constexpr std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace korvel
