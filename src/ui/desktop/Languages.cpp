// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/desktop/Languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "platform/files/Resources.h"
#include "ui/desktop/Text.h"

namespace korvel::ui {
namespace {

bool load(QTranslator& translator, const QLocale& language) {
  const auto resources = platform::Resources::ofProgram();
  for (const auto& folder : resources.folders())
    if (translator.load(language, "korvel", "_", toText((folder / "translations").string())))
      return true;
  return false;
}

}  // namespace

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
