// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/SaveFilePanel.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::ui {

std::optional<std::string> SaveFilePanel::chooseFile(const std::string& proposedName) {
  Preferences preferences;
  const std::size_t ending = std::min(proposedName.rfind('.'), proposedName.size());
  const QString name =
      toText(fileNameOf(proposedName.substr(0, ending)) + proposedName.substr(ending));
  const QString file =
      QFileDialog::getSaveFileName(m_window, QCoreApplication::translate("SaveFilePanel", "Export"),
                                   QDir(preferences.exportFolder()).filePath(name));
  if (file.isEmpty()) return std::nullopt;
  preferences.setExportFolder(QFileInfo(file).absolutePath());
  return file.toStdString();
}

std::string SaveFilePanel::exportFolder() const {
  return Preferences().exportFolder().toStdString();
}

}  // namespace korvel::ui
