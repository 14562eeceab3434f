// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Numerals.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace korvel::platform {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

bool takeSign(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

int intValue(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = takeSign(text, '-');
  if (!negative) takeSign(text, '+');
  if (text.starts_with('-')) return 0;  // a second sign, which from_chars would take for its own
  long long value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end.ec == std::errc::result_out_of_range) value = std::numeric_limits<long long>::max();
  if (negative) value = -value;
  constexpr long long kLowest = std::numeric_limits<int>::min();
  constexpr long long kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

}  // namespace korvel::platform
