// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel::exchange {

/// A line of text, a character each, so that its places are columns.
using Row = std::u32string;

/// The lines of a text of two bytes a character, or of one in UTF-8, of which bytes that are none
/// are Latin-1, or dashes of old word processors. Dashes and bars that are drawn with signs of
/// their own become "-" and "|", tabs go to columns of eight, quotation marks of mail and fences of
/// code are gone.
std::vector<Row> rowsOf(std::string_view text);

std::string utf8(std::u32string_view row);

/// In small letters, sharps and flats as "#" and "b", "?" for what is not in ASCII.
std::string plainWords(std::u32string_view row);

bool isBlank(std::u32string_view row);

inline bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

/// A blank beyond the end.
inline char32_t at(std::u32string_view row, std::size_t column) {
  return column < row.size() ? row[column] : U' ';
}

}  // namespace korvel::exchange
