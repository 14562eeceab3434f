// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/ExportFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <algorithm>

#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::ui {
namespace {

QString wordsOfExport(const char* words) {
  return QCoreApplication::translate("korvel::ui::LibraryActions", words);
}

}  // namespace

/// The dialog has asked for the name as it was typed only.
QString chooseExportFile(QWidget* parent, const QString& title, const std::string& name,
                         const QString& filter, const QStringList& endings) {
  Preferences preferences;
  const QString proposed = toText(fileNameOf(name)) + endings.first();
  const QString typed = QFileDialog::getSaveFileName(
      parent, title, QDir(preferences.exportFolder()).filePath(proposed), filter);
  if (typed.isEmpty()) return {};
  preferences.setExportFolder(QFileInfo(typed).absolutePath());
  const bool isNamed = std::ranges::any_of(
      endings, [&](const QString& ending) { return typed.endsWith(ending, Qt::CaseInsensitive); });
  if (isNamed) return typed;
  const QString file = typed + endings.first();
  return mayReplaceFile(parent, file) ? file : QString();
}

bool mayReplaceFile(QWidget* parent, const QString& file) {
  return !QFileInfo::exists(file) ||
         QMessageBox::question(
             parent, wordsOfExport(QT_TRANSLATE_NOOP("korvel::ui::LibraryActions", "Export Song")),
             wordsOfExport(QT_TRANSLATE_NOOP("korvel::ui::LibraryActions",
                                             "%1 is there already. Replace it?"))
                 .arg(file)) == QMessageBox::Yes;
}

}  // namespace korvel::ui
