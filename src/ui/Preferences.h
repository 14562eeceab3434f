// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QStringList>

namespace korvel::ui {

/// What the window remembers of its user from one start to the next, in the desktop's usual place.
/// Objects are cheap, and all of them read and write the same values.
class Preferences {
 public:
  QByteArray windowGeometry() const { return m_store.value("window/geometry").toByteArray(); }
  void setWindowGeometry(const QByteArray& value) { m_store.setValue("window/geometry", value); }
  QByteArray windowState() const { return m_store.value("window/state").toByteArray(); }
  void setWindowState(const QByteArray& value) { m_store.setValue("window/state", value); }
  /// Percent of the font's size.
  int zoom() const { return m_store.value("tab/zoom", 100).toInt(); }
  void setZoom(int percent) { m_store.setValue("tab/zoom", percent); }
  /// "Album/Title" of the song that was shown last; empty at first.
  QString lastSong() const { return m_store.value("lastSong").toString(); }
  void setLastSong(const QString& name) { m_store.setValue("lastSong", name); }

  /// Files that were imported, the latest first.
  QStringList recentFiles() const { return m_store.value("recentFiles").toStringList(); }
  void addRecentFile(const QString& file);

  QString importFolder() const { return folder("folders/import"); }
  void setImportFolder(const QString& path) { m_store.setValue("folders/import", path); }
  QString exportFolder() const { return folder("folders/export"); }
  void setExportFolder(const QString& path) { m_store.setValue("folders/export", path); }

 private:
  /// The home folder at first.
  QString folder(const QString& key) const;

  QSettings m_store;
};

}  // namespace korvel::ui
