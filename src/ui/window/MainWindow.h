// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/persistence/Ref.h"
#include "ui/desktop/DesktopScheme.h"
#include "ui/dialogs/SaveFilePanel.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/session/SessionViews.h"

class QDockWidget;
class QLabel;
class QVBoxLayout;

namespace korvel::ui {

class AlbumMenu;
class EditMenu;
class FindBar;
class FretboardView;
class HelpWindow;
class JobPanel;
class LibraryActions;
class LogPanel;
class PlayerBar;
class RecordPanel;
class RollView;
class SongMenu;
class TablatureView;
class TreePanel;

/// The window that a guitarist works in. For as long as it lives its panels are the session's
/// views.
class MainWindow final : public QMainWindow, public SongView {
  Q_OBJECT

 public:
  /// The store is open and seeded; the alert outlives the window.
  explicit MainWindow(FatalAlert& alert, QWidget* parent = nullptr);
  ~MainWindow() override;

  void importFiles(const QStringList& files);
  /// Somebody started the program again, with these files.
  void comeToFront(const QStringList& files);
  /// Shows the song that was shown when the window was closed last.
  void openLastSong();
  /// Says what was running when the last window did not close, offers to import what it was
  /// recording, and a working directory to a new user.
  void greet();

  void setActiveSong(QBSong* song) override;

  /// What the status bar says at the moment.
  QString statusMessage() const;
  QString log() const;
  void setLog(const QString& text);
  TreePanel& tree() { return *m_tree; }
  TablatureView& tablature() { return *m_tablature; }

 signals:
  /// The user chose a language other than the window's, and nothing is under way that a new window
  /// would end.
  void languageChosen();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void addTablature();
  void connectViews();
  void connectSound();
  void addPanels();
  QDockWidget* addPanel(const QString& title, const char* name, QWidget* panel,
                        Qt::DockWidgetArea area);
  void attachViews(FatalAlert& alert);
  void restoreLayout();
  void say(const QString& text);

  // Menus.
  void addMenus();
  void addFileMenu();
  void completeEditMenu();
  void addLibraryEdits();
  void addPlayMenu();
  void addViewMenu();
  void addGoToMenu(QMenu& menu);
  void addHelpMenu();
  void listRecentFiles();
  void listAlbums(QMenu& menu);
  static void goTo(QDockWidget& panel);
  /// Does what needs a song that can be handed on.
  void withSong(const std::function<void()>& act);

  // What the menus do.
  void showCursor(int chord);
  void showPlaying();
  void refreshViews();
  void resetLoop();
  void chooseLoopEnd(int chord);
  void showImported(const QString& file, QBSong* song);
  void showNewSong(QBSong* song);
  void applyPreferences();
  void changeSettings(const char* page = nullptr);
  bool isBusy() const;
  void offerTakes();
  void offerWorkFolder();
  void rememberRunning();
  void rememberSong() const;
  void tellOfInterrupted(const ImportUnderWay& import);
  void endWork();
  void printSong();
  void exportPdf();
  void showHelp();

  SaveFilePanel m_savePanel{this};
  LibraryTree m_library;
  ImportDesk m_desk{m_library};
  platform::Ref<QBSong> m_song;
  bool m_turnedToASong = false;  ///< The user did so since the last import was started.
  LibraryActions* m_actions;
  TreePanel* m_tree;
  TablatureView* m_tablature;
  FindBar* m_find;
  FretboardView* m_fretboard;
  RollView* m_roll;
  LogPanel* m_log;
  JobPanel* m_jobs;
  PlayerBar* m_player;
  RecordPanel* m_record;
  HelpWindow* m_help;
  EditMenu* m_editMenu;
  SongMenu* m_songMenu;
  AlbumMenu* m_albumMenu;
  QMenu* m_recent = nullptr;
  QList<QDockWidget*> m_panels;  ///< The library first.
  DesktopScheme m_scheme;
  QVBoxLayout* m_centre = nullptr;
  QLabel* m_heard;  ///< Which song plays.
  QLabel* m_place;
};

}  // namespace korvel::ui
