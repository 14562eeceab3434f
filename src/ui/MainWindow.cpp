// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MainWindow.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>

#include "model/QBAlbum.h"
#include "model/QBChord.h"
#include "model/QBSong.h"
#include "model/QBTabMgr.h"
#include "ui/AlbumMenu.h"
#include "ui/FindBar.h"
#include "ui/HelpWindow.h"
#include "ui/JobPanel.h"
#include "ui/LibraryActions.h"
#include "ui/LogPanel.h"
#include "ui/Preferences.h"
#include "ui/SongMenu.h"
#include "ui/Text.h"
#include "ui/TreePanel.h"
#include "ui/views/TablatureView.h"
#include "workflow/QBSession.h"
#include "workflow/SongEdits.h"

namespace korvel::ui {
namespace {

constexpr int kSayMilliseconds = 15000;
constexpr QSize kFirstSize(1200, 760);

}  // namespace

MainWindow::MainWindow(FatalAlert& alert, QWidget* parent)
    : QMainWindow(parent),
      m_actions(new LibraryActions(m_desk, this)),
      m_tree(new TreePanel(m_library, *m_actions)),
      m_tablature(new TablatureView),
      m_find(new FindBar(*m_tablature)),
      m_log(new LogPanel),
      m_jobs(new JobPanel),
      m_help(new HelpWindow(this)),
      m_songMenu(new SongMenu(this)),
      m_albumMenu(new AlbumMenu(*m_actions, this)),
      m_place(new QLabel) {
  setWindowTitle(tr("Workbench .."));
  setAcceptDrops(true);
  statusBar()->addPermanentWidget(m_place);
  addTablature();
  addPanels();
  addMenus();
  restoreLayout();
  attachViews(alert);
  connect(m_actions, &LibraryActions::refused, this, &MainWindow::say);
  connect(m_actions, &LibraryActions::importStarted, this, [this](const QString& file) {
    Preferences().addRecentFile(file);
    m_turnedToASong = false;
  });
  connect(m_actions, &LibraryActions::imported, this, &MainWindow::showImported);
  connect(m_tree, &TreePanel::refused, this, &MainWindow::say);
}

MainWindow::~MainWindow() {
  QBSession& session = QBSession::session();
  session.setActiveTreeNode(nullptr);
  session.attach({});
}

void MainWindow::addTablature() {
  m_tablature->setPlaceholderText(tr("Drop a recording here, or choose File, Import to begin."));
  m_tablature->setZoom(Preferences().zoom());
  connect(m_tablature, &TablatureView::clicked, this,
          [](double x, double y) { QBSession::session().selectChord(x, y); });
  connect(m_tablature, &TablatureView::loopEndChosen, this, &MainWindow::chooseLoopEnd);
  connect(m_tablature, &TablatureView::cursorMoved, this,
          [this] { m_place->setText(m_tablature->placeText()); });
  connect(m_tablature, &TablatureView::zoomChanged, this,
          [](int percent) { Preferences().setZoom(percent); });
  auto* centre = new QWidget;
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_tablature);
  column->addWidget(m_find);
  setCentralWidget(centre);
}

void MainWindow::addPanels() {
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  addPanel(tr("Library"), "library", m_tree, Qt::LeftDockWidgetArea);
  QDockWidget* log = addPanel(tr("Log"), "log", m_log, Qt::BottomDockWidgetArea);
  QDockWidget* jobs = addPanel(tr("Jobs"), "jobs", m_jobs, Qt::BottomDockWidgetArea);
  splitDockWidget(log, jobs, Qt::Horizontal);
  resizeDocks({log, jobs}, {kFirstSize.width() / 2, kFirstSize.width() / 3}, Qt::Horizontal);
  resizeDocks({log}, {kFirstSize.height() / 5}, Qt::Vertical);
}

QDockWidget* MainWindow::addPanel(const QString& title, const char* name, QWidget* panel,
                                  Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title);
  dock->setObjectName(name);
  dock->setWidget(panel);
  addDockWidget(area, dock);
  return dock;
}

void MainWindow::attachViews(FatalAlert& alert) {
  SessionViews views;
  views.output = m_log;
  views.tab = m_tablature;
  views.song = this;
  views.batch = m_jobs;
  views.tree = m_tree;
  views.help = m_help;
  views.songMenu = m_songMenu;
  views.albumMenu = m_albumMenu;
  views.savePanel = &m_savePanel;
  views.alert = &alert;
  QBSession::session().attach(views);
}

void MainWindow::restoreLayout() {
  const Preferences preferences;
  if (!restoreGeometry(preferences.windowGeometry())) resize(kFirstSize);
  restoreState(preferences.windowState());
}

void MainWindow::openLastSong() {
  const QString last = Preferences().lastSong();
  for (const auto& album : QBTabMgr::db().albums())
    if (last.startsWith(toText(album->name()) + '/'))
      for (QBSong* song : album->songs())
        if (toText(album->name() + '/' + song->title()) == last) {
          QBSession::session().setActiveSong(song);
          return;
        }
}

void MainWindow::importFiles(const QStringList& files) { m_actions->importFiles(files); }

void MainWindow::comeToFront(const QStringList& files) {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  importFiles(files);
}

void MainWindow::setActiveSong(QBSong* song) {
  m_song = song;
  m_turnedToASong = true;
  m_tree->showSong(song);
  m_place->setText(m_tablature->placeText());
}

void MainWindow::chooseLoopEnd(int chord) {
  if (!m_song) return;
  moveLoopEnd(*m_song, chord);
  m_tablature->refresh();
}

/// Unless the user has turned to another song meanwhile.
void MainWindow::showImported(const QString& file, QBSong* song) {
  const QString name = QFileInfo(file).fileName();
  if (!song->hasTabulature())
    say(tr("%1: no tones were heard in it; is it a guitar alone, and loud enough?").arg(name));
  else if (!m_turnedToASong)
    QBSession::session().setActiveSong(song);
  else
    say(tr("%1 is imported").arg(name));
}

void MainWindow::say(const QString& text) { statusBar()->showMessage(text, kSayMilliseconds); }

void MainWindow::closeEvent(QCloseEvent* event) {
  ImportDesk::dropAll();
  Preferences preferences;
  preferences.setWindowGeometry(saveGeometry());
  preferences.setWindowState(saveState());
  const QBAlbum* album = m_song ? m_song->album() : nullptr;
  preferences.setLastSong(album ? toText(album->name() + '/' + m_song->title()) : QString());
  QBSession::session().sayGoodBye();
  event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  QStringList files;
  for (const QUrl& url : event->mimeData()->urls())
    if (url.isLocalFile()) files.append(url.toLocalFile());
  importFiles(files);
  event->acceptProposedAction();
}

}  // namespace korvel::ui
