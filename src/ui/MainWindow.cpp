// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MainWindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

#include "model/QBSong.h"
#include "model/QBTextLoader.h"
#include "ui/HelpWindow.h"
#include "ui/JobPanel.h"
#include "ui/LogPanel.h"
#include "ui/Preferences.h"
#include "ui/TabPanel.h"
#include "ui/Text.h"
#include "workflow/QBSession.h"

namespace korvel::ui {

MainWindow::MainWindow(FatalAlert& alert, QWidget* parent)
    : QMainWindow(parent),
      m_tab(new TabPanel),
      m_log(new LogPanel),
      m_jobs(new JobPanel),
      m_help(new HelpWindow(this)),
      m_songLabel(new QLabel) {
  setWindowTitle(tr("Workbench .."));
  setCentralWidget(m_tab);
  statusBar()->addPermanentWidget(m_songLabel);
  addPanels();
  addMenus();
  restoreLayout();
  attachViews(alert);
}

MainWindow::~MainWindow() { QBSession::session().attach({}); }

void MainWindow::addPanels() {
  QDockWidget* log = addPanel(tr("Log"), "log", m_log, Qt::BottomDockWidgetArea);
  QDockWidget* jobs = addPanel(tr("Jobs"), "jobs", m_jobs, Qt::BottomDockWidgetArea);
  splitDockWidget(log, jobs, Qt::Horizontal);
}

QDockWidget* MainWindow::addPanel(const QString& title, const char* name, QWidget* panel,
                                  Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title);
  dock->setObjectName(name);
  dock->setWidget(panel);
  addDockWidget(area, dock);
  return dock;
}

void MainWindow::addMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
  QMenu* view = createPopupMenu();
  view->setTitle(tr("&View"));
  menuBar()->addMenu(view);
  QMenu* help = menuBar()->addMenu(tr("&Help"));
  help->addAction(tr("&Contents"), QKeySequence::HelpContents, this, &MainWindow::showHelp);
}

void MainWindow::attachViews(FatalAlert& alert) {
  SessionViews views;
  views.output = m_log;
  views.tab = m_tab;
  views.song = this;
  views.batch = m_jobs;
  views.help = m_help;
  views.savePanel = &m_savePanel;
  views.alert = &alert;
  QBSession::session().attach(views);
}

void MainWindow::restoreLayout() {
  const Preferences preferences;
  if (!restoreGeometry(preferences.windowGeometry())) resize(1100, 700);
  restoreState(preferences.windowState());
}

void MainWindow::openFiles(const QStringList&) {}

void MainWindow::comeToFront(const QStringList& files) {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  openFiles(files);
}

void MainWindow::setActiveSong(QBSong* song) {
  m_songLabel->setText(song ? toText(song->title()) : QString());
}

void MainWindow::showHelp() {
  QBSession::session().drawHelp(QBTextLoader::db().index().value_or(""));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  Preferences preferences;
  preferences.setWindowGeometry(saveGeometry());
  preferences.setWindowState(saveState());
  QBSession::session().sayGoodBye();
  event->accept();
}

}  // namespace korvel::ui
