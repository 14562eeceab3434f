// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/ForeignText.h"

#include <algorithm>
#include <array>

#include "platform/text/Utf8.h"

namespace korvel::platform {
namespace {

constexpr std::string_view kLowByteFirst = "\xFF\xFE";
constexpr std::string_view kHighByteFirst = "\xFE\xFF";
constexpr std::string_view kMarkOfUtf8 = "\xEF\xBB\xBF";
constexpr char32_t kFollowingBits = 0x3F;

/// What stands for the bytes from 0x80 on that Latin 1 has control characters for; 0 for none.
constexpr std::array<char16_t, 32> kWindowsLetters{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool isFirstHalf(char32_t code) { return code >= 0xD800 && code < 0xDC00; }
bool isSecondHalf(char32_t code) { return code >= 0xDC00 && code < 0xE000; }

/// Halves of a character without the other one become question marks.
std::string narrowed(std::string_view wide) {
  const std::size_t low = wide.starts_with(kLowByteFirst) ? 0 : 1;
  const auto codeAt = [&](std::size_t place) -> char32_t {
    if (place + 1 >= wide.size()) return 0;
    const auto high = static_cast<unsigned char>(wide[place + 1 - low]);
    return char32_t{high} << 8U | static_cast<unsigned char>(wide[place + low]);
  };
  std::string text;
  for (std::size_t i = kLowByteFirst.size(); i + 1 < wide.size(); i += 2) {
    const char32_t code = codeAt(i);
    const char32_t next = codeAt(i + 2);
    if (isFirstHalf(code) && isSecondHalf(next)) {
      appendCharacter(text, 0x10000 + ((code - 0xD800) << 10U) + (next - 0xDC00));
      i += 2;
    } else {
      appendCharacter(text, isFirstHalf(code) || isSecondHalf(code) ? U'?' : code);
    }
  }
  return text;
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    if (character.size() == 1 && static_cast<unsigned char>(character.front()) >= 0x80)
      return false;
    text.remove_prefix(character.size());
  }
  return true;
}

}  // namespace

bool isWideText(std::string_view bytes) {
  return bytes.starts_with(kLowByteFirst) || bytes.starts_with(kHighByteFirst);
}

std::string foreignText(std::string_view bytes) {
  if (isWideText(bytes)) return narrowed(bytes);
  if (bytes.starts_with(kMarkOfUtf8)) bytes.remove_prefix(kMarkOfUtf8.size());
  return isUtf8(bytes) ? std::string(bytes) : westernText(bytes);
}

std::string westernText(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool isMoved = byte >= 0x80U && byte < 0xA0U;
    const char32_t letter = isMoved ? kWindowsLetters[byte - 0x80U] : byte;
    if (letter != 0) appendCharacter(text, letter);
  }
  return text;
}

void appendCharacter(std::string& text, char32_t character) {
  const auto push = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) return push(character);
  if (character < 0x800) {
    push(0xC0U | character >> 6U);
  } else {
    if (character < 0x10000) {
      push(0xE0U | character >> 12U);
    } else {
      push(0xF0U | character >> 18U);
      push(0x80U | (character >> 12U & kFollowingBits));
    }
    push(0x80U | (character >> 6U & kFollowingBits));
  }
  push(0x80U | (character & kFollowingBits));
}

}  // namespace korvel::platform
