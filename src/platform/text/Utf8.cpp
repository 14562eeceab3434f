// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Utf8.h"

#include <algorithm>

namespace korvel::platform {
namespace {

struct Form {
  std::size_t length;
  unsigned char secondMin;
  unsigned char secondMax;
};

/// What must follow a first byte; length 1 also for bytes that start no character. The second
/// byte's range keeps out overlong forms, surrogates and values beyond U+10FFFF.
Form formOf(unsigned char first) {
  if (first >= 0xC2 && first <= 0xDF) return {2, 0x80, 0xBF};
  if (first == 0xE0) return {3, 0xA0, 0xBF};
  if (first == 0xED) return {3, 0x80, 0x9F};
  if (first >= 0xE1 && first <= 0xEF) return {3, 0x80, 0xBF};
  if (first == 0xF0) return {4, 0x90, 0xBF};
  if (first >= 0xF1 && first <= 0xF3) return {4, 0x80, 0xBF};
  if (first == 0xF4) return {4, 0x80, 0x8F};
  return {1, 0, 0};
}

/// Bytes of the character that a non-empty text begins with.
std::size_t firstLength(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const Form form = formOf(byte(0));
  if (form.length == 1 || text.size() < form.length) return 1;
  if (byte(1) < form.secondMin || byte(1) > form.secondMax) return 1;
  for (std::size_t i = 2; i < form.length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 1;
  return form.length;
}

bool isPlainAscii(char c) { return c >= ' ' && c <= '~'; }

bool isPrintable(std::string_view character) {
  if (character.size() == 1) return isPlainAscii(character[0]);
  // U+0080 to U+009F are control characters too; U+FFFE and U+FFFF are none at all.
  if (character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0) return false;
  return character != "\xEF\xBF\xBE" && character != "\xEF\xBF\xBF";
}

}  // namespace

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(firstLength(text));
  return count;
}

std::string_view firstCharacter(std::string_view text) {
  return text.empty() ? text : text.substr(0, firstLength(text));
}

std::vector<std::string> characters(std::string_view text) {
  std::vector<std::string> found;
  while (!text.empty()) {
    found.emplace_back(firstCharacter(text));
    text.remove_prefix(found.back().size());
  }
  return found;
}

std::string printable(std::string_view text) {
  if (std::ranges::all_of(text, isPlainAscii)) return std::string(text);
  std::string kept;
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    if (isPrintable(character)) kept += character;
    text.remove_prefix(character.size());
  }
  return kept;
}

}  // namespace korvel::platform
