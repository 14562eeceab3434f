// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/QBTextMatrix.h"

#include "platform/text/Utf8.h"

namespace korvel {
namespace {

QBMatrixValue cellOf(std::string_view text) {
  QBMatrixValue cell;
  cell.setString(text);
  return cell;
}

}  // namespace

void QBTextMatrix::setString(int x, int y, std::string_view text) { set(x, y, cellOf(text)); }

std::optional<std::string_view> QBTextMatrix::getString(int x, int y) const {
  const QBMatrixValue* cell = get(x, y);
  return cell ? std::optional(cell->getString()) : std::nullopt;
}

void QBTextMatrix::horText(int x, int y, std::string_view text) {
  while (!text.empty()) {
    const std::string_view character = platform::firstCharacter(text);
    setString(x++, y, character);
    text.remove_prefix(character.size());
  }
}

void QBTextMatrix::vertText(int x, int y, std::string_view text) {
  while (!text.empty()) {
    const std::string_view character = platform::firstCharacter(text);
    setString(x, y++, character);
    text.remove_prefix(character.size());
  }
}

void QBTextMatrix::horLine(int x, int y, int n) {
  if (n > 0) setRun(x, y, n, cellOf("-"));
}

void QBTextMatrix::vertLine(int x, int y, int n) {
  for (int i = 0; i < n; ++i) setString(x, y + i, "|");
}

}  // namespace korvel
