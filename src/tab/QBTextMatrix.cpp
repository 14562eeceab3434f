// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/QBTextMatrix.h"

#include "platform/Utf8.h"

namespace korvel {

void QBTextMatrix::setString(int x, int y, std::string_view text) {
  QBMatrixValue cell;
  cell.setString(text);
  set(x, y, cell);
}

std::optional<std::string_view> QBTextMatrix::getString(int x, int y) const {
  const QBMatrixValue* cell = get(x, y);
  return cell ? std::optional(cell->getString()) : std::nullopt;
}

void QBTextMatrix::horText(int x, int y, std::string_view text) {
  for (const auto& character : platform::characters(text)) setString(x++, y, character);
}

void QBTextMatrix::vertText(int x, int y, std::string_view text) {
  for (const auto& character : platform::characters(text)) setString(x, y++, character);
}

void QBTextMatrix::horLine(int x, int y, int n) {
  for (int i = 0; i < n; ++i) setString(x + i, y, "-");
}

void QBTextMatrix::vertLine(int x, int y, int n) {
  for (int i = 0; i < n; ++i) setString(x, y + i, "|");
}

}  // namespace korvel
