// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include "ui/SaveFilePanel.h"
#include "workflow/SessionViews.h"

class QDockWidget;
class QLabel;

namespace korvel::ui {

class HelpWindow;
class JobPanel;
class LogPanel;
class TabPanel;

/// The window that a guitarist works in. For as long as it lives its panels are the session's
/// views.
class MainWindow final : public QMainWindow, public SongView {
  Q_OBJECT

 public:
  /// The store is open and seeded; the alert outlives the window.
  explicit MainWindow(FatalAlert& alert, QWidget* parent = nullptr);
  ~MainWindow() override;

  void openFiles(const QStringList& files);
  /// Somebody started the program again, with these files.
  void comeToFront(const QStringList& files);

  void setActiveSong(QBSong* song) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void addPanels();
  QDockWidget* addPanel(const QString& title, const char* name, QWidget* panel,
                        Qt::DockWidgetArea area);
  void addMenus();
  void attachViews(FatalAlert& alert);
  void restoreLayout();
  void showHelp();

  SaveFilePanel m_savePanel{this};
  TabPanel* m_tab;
  LogPanel* m_log;
  JobPanel* m_jobs;
  HelpWindow* m_help;
  QLabel* m_songLabel;
};

}  // namespace korvel::ui
