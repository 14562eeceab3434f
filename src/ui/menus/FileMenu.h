// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>
#include <filesystem>
#include <functional>
#include <vector>

#include "platform/persistence/Ref.h"

namespace korvel {
class QBSong;
}

namespace korvel::ui {

class LibraryActions;
class SongSheets;
struct PaperWork;

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
  /// Writes files, whose names are answered, and logs them.
  void write(const std::function<std::vector<std::filesystem::path>()>& write);
  void save(const PaperWork& work, const QString& file);
  bool mayReplace(const std::filesystem::path& file);

  LibraryActions& m_actions;
  const SongSheets& m_sheets;
  platform::Ref<QBSong> m_song;
  QMenu* m_recent = nullptr;
  QList<QAction*> m_forSong;  ///< Entries that need a song with chords.
};

}  // namespace korvel::ui
