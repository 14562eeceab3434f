// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// Number of characters (code points) of a UTF-8 text. A byte that belongs to no well-formed
/// character counts as one.
std::size_t characterCount(std::string_view text);

/// The character that a UTF-8 text begins with; empty when the text is.
std::string_view firstCharacter(std::string_view text);

/// The characters of a UTF-8 text, one entry each; joined they give the text back.
std::vector<std::string> characters(std::string_view text);

/// The text without control characters, line ends among them, and bytes that are no UTF-8.
std::string printable(std::string_view text);

}  // namespace korvel::platform
