// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/text/TextRows.h"

#include <algorithm>

#include "platform/text/ForeignText.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange {

namespace {

constexpr std::size_t kColumnsOfTab = 8;
constexpr unsigned kByte = 0xFF;
constexpr unsigned kFollowing = 0x3F;
constexpr unsigned kFollowingBits = 6;
constexpr std::u32string_view kDashes =
    U"\u2010\u2011\u2012\u2013\u2014\u2015\u2212\u2500\u2501\u00AD\u0096\u0097";
constexpr std::u32string_view kBars = U"\u2502\u2503\u2551\u00A6\u2016\uFF5C";
constexpr std::u32string_view kBlanks = U"\u00A0\u2007\u2009\u3000";
constexpr std::u32string_view kNothing = U"\uFEFF\u200B\u200C\u200D\u2060";

/// Of one that `platform::characters` found: well-formed, or a byte.
char32_t codeOf(const std::string& character) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]) & kByte; };
  if (character.size() == 1) return byte(0);
  unsigned code = byte(0) & (kByte >> (character.size() + 1));
  for (std::size_t i = 1; i < character.size(); ++i)
    code = (code << kFollowingBits) | (byte(i) & kFollowing);
  return code;
}

bool has(std::u32string_view set, char32_t c) { return set.find(c) != std::u32string_view::npos; }

void add(Row& row, char32_t c) {
  if (c == U'\t') {
    row.append(kColumnsOfTab - row.size() % kColumnsOfTab, U' ');
  } else if (has(kDashes, c)) {
    row += U'-';
  } else if (has(kBars, c)) {
    row += U'|';
  } else if (has(kBlanks, c)) {
    row += U' ';
  } else if (c >= U' ' && !has(kNothing, c)) {
    row += c;
  }
}

void dropQuotation(Row& row) {
  std::size_t first = row.find_first_not_of(U' ');
  if (first == Row::npos || row[first] != U'>') return;
  while (at(row, first) == U'>' || (at(row, first) == U' ' && at(row, first + 1) == U'>')) ++first;
  row.erase(0, first + (at(row, first) == U' ' ? 1 : 0));
}

Row rowOf(std::string_view line) {
  Row row;
  for (const std::string& character : platform::characters(line)) add(row, codeOf(character));
  dropQuotation(row);
  const std::size_t end = row.find_last_not_of(U' ');
  row.erase(end == Row::npos ? 0 : end + 1);
  const std::size_t first = row.find_first_not_of(U' ');
  if (first != Row::npos && row.compare(first, 3, U"```") == 0) row.clear();
  return row;
}

}  // namespace

std::vector<Row> rowsOf(std::string_view text) {
  if (platform::isWideText(text)) return rowsOf(platform::foreignText(text));
  std::vector<Row> rows;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    rows.push_back(rowOf(text.substr(0, end)));
    const bool isPair = text.substr(end).starts_with("\r\n");
    text.remove_prefix(std::min(end + (isPair ? 2 : 1), text.size()));
  }
  return rows;
}

std::string utf8(std::u32string_view row) {
  std::string text;
  for (const char32_t c : row) platform::appendCharacter(text, c);
  return text;
}

std::string plainWords(std::u32string_view row) {
  std::string text;
  for (const char32_t c : row) {
    if (c == U'\u266F')
      text += '#';
    else if (c == U'\u266D')
      text += 'b';
    else if (c >= U'A' && c <= U'Z')
      text += static_cast<char>(c - U'A' + U'a');
    else
      text += c < 0x80 ? static_cast<char>(c) : '?';
  }
  return text;
}

bool isBlank(std::u32string_view row) {
  return row.find_first_not_of(U' ') == std::u32string_view::npos;
}

}  // namespace korvel::exchange
