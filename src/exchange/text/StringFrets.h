// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "exchange/text/SystemBars.h"

namespace korvel::exchange {

/// What is struck in a bar, from left to right. Numbers in one column, or of which one reaches into
/// the other's columns, sound together; two digits are a fret up to 24, or else two of them. What a
/// bend reaches is not struck. lines: the highest string first.
/// left: counts the signs of techniques, and muted strings.
std::vector<Struck> struckOn(const std::array<Row, kStrings>& lines,
                             std::map<std::string, int>& left);

}  // namespace korvel::exchange
