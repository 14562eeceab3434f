// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/Scanner.h"

#include "platform/files/Files.h"

namespace korvel {
namespace {

constexpr char kEnd = '!';

}  // namespace

Scanner::Scanner(const std::filesystem::path& file) : data(platform::bytesOrNone(file)) {}

char Scanner::readChar() { return rpos < data.size() ? data[rpos++] : kEnd; }

std::optional<Token> Scanner::nextToken() {
  std::optional<Token> open;
  for (char next = readChar(); next != kEnd; next = readChar()) {
    if (next == '<') {
      open = Token{};
    } else if (open) {
      if (next == '>') return open;
      open->value += next;
    }
  }
  rpos = data.size();
  return std::nullopt;
}

}  // namespace korvel
