// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvel::platform {

inline constexpr std::string_view kBlanks = " \t\r\n";
/// Those that end no line.
inline constexpr std::string_view kBlanksOfLine = " \t";

/// The text without the blanks around it.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = kBlanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

}  // namespace korvel::platform
