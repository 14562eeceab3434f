// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/Preferences.h"

#include <QDir>

namespace korvel::ui {
namespace {

constexpr int kMostRecentFiles = 10;

}  // namespace

void Preferences::addRecentFile(const QString& file) {
  QStringList files = recentFiles();
  files.removeAll(file);
  files.prepend(file);
  m_store.setValue("recentFiles", files.mid(0, kMostRecentFiles));
}

QString Preferences::folder(const QString& key) const {
  return m_store.value(key, QDir::homePath()).toString();
}

}  // namespace korvel::ui
