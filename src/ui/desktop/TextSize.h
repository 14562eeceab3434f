// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScreen>
#include <QWidget>

namespace korvel::ui {

/// Of a window with room for so many letters and lines of its font, or as large as its screen has.
inline QSize sizeOfText(const QWidget& window, int columns, int lines) {
  constexpr double kMostOfScreen = 0.95;  // the frame takes some
  const QFontMetrics metrics(window.font());
  const QSize wanted(columns * metrics.horizontalAdvance('m'), lines * metrics.lineSpacing());
  return wanted.boundedTo(window.screen()->availableSize() * kMostOfScreen);
}

}  // namespace korvel::ui
