// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Numerals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace korvel::platform {
namespace {

constexpr std::string_view kBlanksOfNumerals = " \t\r\n\v\f";

bool takeSign(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

void skipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanksOfNumerals), text.size()));
}

/// Takes one sign away; true for a minus.
bool takeSign(std::string_view& text) {
  const bool negative = takeSign(text, '-');
  if (!negative) takeSign(text, '+');
  return negative;
}

/// Whether a number that no variable can hold is a tiny one: its digits do not say, its form does.
bool isTiny(std::string_view number) {
  const auto exponent = number.find_first_of("eE");
  if (exponent != std::string_view::npos) return number.substr(exponent + 1).starts_with('-');
  return number.starts_with("0.") || number.starts_with('.');
}

template <class Number>
Number decimalValue(std::string_view text) {
  skipBlanks(text);
  const bool negative = takeSign(text);
  // from_chars would also take "inf", "nan" and a second sign.
  if (text.empty() || text.find_first_not_of("0123456789.") == 0) return 0;
  Number value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end.ec == std::errc::result_out_of_range) {
    const auto length = static_cast<std::size_t>(end.ptr - text.data());
    value = isTiny(text.substr(0, length)) ? 0 : std::numeric_limits<Number>::max();
  }
  return negative ? -value : value;
}

}  // namespace

int intValue(std::string_view text) {
  skipBlanks(text);
  const bool negative = takeSign(text);
  if (text.starts_with('-')) return 0;  // a second sign, which from_chars would take for its own
  long long value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end.ec == std::errc::result_out_of_range) value = std::numeric_limits<long long>::max();
  if (negative) value = -value;
  constexpr long long kLowest = std::numeric_limits<int>::min();
  constexpr long long kHighest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

double doubleValue(std::string_view text) { return decimalValue<double>(text); }

float floatValue(std::string_view text) { return decimalValue<float>(text); }

std::string decimalText(double value) {
  constexpr int kDecimals = 6;
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, kDecimals);
  return {digits.data(), end.ptr};
}

}  // namespace korvel::platform
