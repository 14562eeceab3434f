// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <functional>

#include "platform/persistence/Ref.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class LibraryActions;
class SongSheets;

/// Recordings in, songs out.
class FileMenu final : public QMenu {
  Q_OBJECT

 public:
  /// Songs are printed as the sheet in front shows them. Both outlive the menu.
  FileMenu(LibraryActions& actions, const SongSheets& sheets, QWidget* parent = nullptr);

  /// The song that is handed on.
  void setSong(QBSong* song);

 signals:
  void settingsWanted();
  void quitWanted();
  /// One line with what to do.
  void refused(const QString& text);

 private:
  void addSongEntries();
  void addForSong(const QString& title, const QKeySequence& keys, const std::function<void()>& act);
  void listRecentFiles();
  bool hasSong() const;
  void enableForSong(bool enabled);
  void printSong();
  void exportPdf();
  void write(const std::function<void()>& write, const QString& file);

  LibraryActions& m_actions;
  const SongSheets& m_sheets;
  platform::Ref<QBSong> m_song;
  QMenu* m_recent = nullptr;
  QList<QAction*> m_forSong;  ///< Entries that need a song with chords.
};

}  // namespace korvel::ui
