// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Appearance.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QTranslator>

#include "platform/files/Resources.h"
#include "ui/desktop/Text.h"
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

bool load(QTranslator& translator, const QLocale& language) {
  const auto resources = platform::Resources::ofProgram();
  for (const auto& folder : resources.folders())
    if (translator.load(language, "korvel", "_", toText((folder / "translations").string())))
      return true;
  return false;
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

void applyLanguage(const QString& language) {
  applyLanguages(language.isEmpty() ? QLocale::system().uiLanguages() : QStringList(language));
}

void applyLanguages(const QStringList& languages) {
  static QTranslator own;
  static QTranslator ofQt;
  QCoreApplication::removeTranslator(&own);
  QCoreApplication::removeTranslator(&ofQt);
  for (const QString& each : languages) {
    const QLocale language(each);
    if (language.language() == QLocale::English) return;
    if (!load(own, language)) continue;
    QCoreApplication::installTranslator(&own);
    if (ofQt.load(language, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
      QCoreApplication::installTranslator(&ofQt);
    return;
  }
}

}  // namespace korvel::ui
