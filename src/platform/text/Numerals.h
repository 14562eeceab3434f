// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvel::platform {

// Numbers in files, written with a point whatever the user's locale.

/// The whole number that a text begins with, after blanks: an optional sign and digits. Whatever
/// follows is ignored; a text that begins with no number gives 0, one out of range the nearest int.
int intValue(std::string_view text);

/// The same for a decimal number, with an exponent or without. One beyond the range gives the
/// largest number or, when it is that small, 0.
double doubleValue(std::string_view text);
float floatValue(std::string_view text);

/// With six decimals.
std::string decimalText(double value);

}  // namespace korvel::platform
