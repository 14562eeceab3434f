// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <exception>
#include <optional>

#include "ui/desktop/DesktopScheme.h"
#include "ui/dialogs/SaveFilePanel.h"
#include "ui/window/Panels.h"
#include "ui/window/RunningWork.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/session/SessionViews.h"

class QLabel;
class QVBoxLayout;

namespace korvel::ui {

class AlbumMenu;
class Arrivals;
class DiagramSwitches;
class EditMenu;
class FileMenu;
class FindBar;
class FretboardView;
class HelpWindow;
class JobPanel;
class LibraryActions;
class LogPanel;
class Moments;
class Offers;
class PageDesk;
class PlayerBar;
class PracticePanel;
class RecordPanel;
class RecordingMenu;
class RollView;
class ShownSong;
class SongGuides;
class SongMenu;
class SongSheets;
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

  /// Says in the status bar and in the log what did not work, and what to do.
  void tell(const std::exception& problem);

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
  /// The window closes, which may take a while; nothing new is to be begun.
  void ending();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void layOut();
  QWidget* newCentre();
  void connectParts();
  void connectLibrary();
  void attachViews(FatalAlert& alert);
  void say(const QString& text);

  void addMenus();
  void addPlayMenu();
  void addViewMenu();
  void addHelpMenu();

  // What the menus do.
  void applyPreferences();
  void changeSettings(const char* page = nullptr);
  void showHelp();
  void practise(QBSong* song);
  void tapAlong();

  void showHeard(QBSong* heard);
  void showDoubts(int places);
  void rememberRunning();

  SaveFilePanel m_savePanel{this};
  LibraryTree m_library;
  ImportDesk m_desk{m_library};
  SongGuides* m_guides;
  LibraryActions* m_actions;
  TreePanel* m_tree;
  TablatureView* m_tablature;
  PageDesk* m_page;
  SongSheets* m_sheets;
  FindBar* m_find;
  FretboardView* m_fretboard;
  RollView* m_roll;
  LogPanel* m_log;
  JobPanel* m_jobs;
  PlayerBar* m_player;
  Moments* m_moments;
  PracticePanel* m_practice;
  RecordPanel* m_record;
  HelpWindow* m_help;
  FileMenu* m_fileMenu;
  EditMenu* m_editMenu;
  SongMenu* m_songMenu;
  AlbumMenu* m_albumMenu;
  RecordingMenu* m_recordingMenu;
  DiagramSwitches* m_diagrams;
  ShownSong* m_shown;
  Arrivals* m_arrivals;
  RunningWork m_work;
  QVBoxLayout* m_centre = nullptr;
  Offers* m_offers = nullptr;
  std::optional<Panels> m_panels;
  DesktopScheme m_scheme;
  QLabel* m_heard;   ///< Which song plays.
  QLabel* m_doubts;  ///< How much of the song that is shown is left to be looked at.
  QLabel* m_place;
};

}  // namespace korvel::ui
