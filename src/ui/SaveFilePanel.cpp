// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/SaveFilePanel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "ui/Preferences.h"

namespace korvel::ui {

std::optional<std::string> SaveFilePanel::chooseFile(const std::string& proposedName) {
  Preferences preferences;
  QString name = QString::fromStdString(proposedName);
  name.replace('/', '_');  // a title may hold what separates folders
  const QString file =
      QFileDialog::getSaveFileName(m_window, QCoreApplication::translate("SaveFilePanel", "Export"),
                                   QDir(preferences.exportFolder()).filePath(name));
  if (file.isEmpty()) return std::nullopt;
  preferences.setExportFolder(QFileInfo(file).absolutePath());
  return file.toStdString();
}

}  // namespace korvel::ui
