// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvel::platform {

/// Whether a text begins with the mark of two bytes a character, as some editors save it.
bool isWideText(std::string_view bytes);

/// What stands in a text file of any program, as UTF-8 without its mark: of two bytes a character
/// where the file is marked so, UTF-8 where all of it is that, or else letters of Western Europe.
std::string foreignText(std::string_view bytes);

/// A text in the letters of Western Europe, a byte each (Windows-1252); bytes that are none are
/// left out.
std::string westernText(std::string_view bytes);

/// Appends a character to a text in UTF-8.
void appendCharacter(std::string& text, char32_t character);

}  // namespace korvel::platform
