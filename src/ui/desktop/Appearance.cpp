// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

#include "ui/views/Shades.h"

namespace korvel::ui {
namespace {

QPalette paletteOf(const QColor& window, const QColor& base, const QColor& text,
                   const QColor& highlight, const QColor& link) {
  QPalette palette(window);
  const QColor faint = mixed(window, text, 0.5);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::BrightText})
    palette.setColor(role, text);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, faint);
  palette.setColor(QPalette::PlaceholderText, mixed(window, text, 0.6));
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::Highlight, highlight);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, link);
  return palette;
}

QPalette dark() {
  return paletteOf({45, 45, 48}, {30, 30, 32}, {230, 230, 230}, {45, 110, 180}, {120, 180, 240});
}

QPalette light() {
  return paletteOf({239, 239, 239}, {255, 255, 255}, {20, 20, 20}, {48, 100, 180}, {48, 100, 180});
}

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightnessF() <
         palette.color(QPalette::WindowText).lightnessF();
}

void useStyle(const QString& name) {
  if (QApplication::style()->name() != name) QApplication::setStyle(name);
}

}  // namespace

void applyTheme(Theme theme, bool desktopIsDark) {
  static const QString styleOfTheDesktop = QApplication::style()->name();
  if (theme == Theme::system) {
    useStyle(styleOfTheDesktop);
    QApplication::setPalette(QPalette());  // follows the desktop's from now on
    if (!desktopIsDark || isDark(QApplication::palette())) return;
  }
  useStyle("fusion");
  QApplication::setPalette(theme == Theme::light ? light() : dark());
}

}  // namespace korvel::ui
