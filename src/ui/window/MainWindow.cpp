// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/HelpWindow.h"
#include "ui/dialogs/SettingsDialog.h"
#include "ui/library/AlbumMenu.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/SongMenu.h"
#include "ui/library/TreePanel.h"
#include "ui/views/FretboardView.h"
#include "ui/views/RollView.h"
#include "ui/views/TablatureView.h"
#include "ui/window/EditMenu.h"
#include "ui/window/FindBar.h"
#include "ui/window/JobPanel.h"
#include "ui/window/LogPanel.h"
#include "ui/window/OfferBar.h"
#include "ui/window/PlayerBar.h"
#include "ui/window/RecordPanel.h"
#include "workflow/editing/SongEdits.h"
#include "workflow/hearing/LiveRecording.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

constexpr int kSayMilliseconds = 15000;
// Of the first window, in letters and lines.
constexpr int kColumns = 106;
constexpr int kLines = 60;
// In smaller ones panels share a place, one before the other.
constexpr int kLinesForTwoRows = 40;
constexpr int kColumnsForTwoPanels = 70;
constexpr double kMostOfScreen = 0.95;  // the frame takes some

QSize firstSize(const QWidget& window) {
  const QFontMetrics metrics(window.font());
  const QSize wanted(kColumns * metrics.horizontalAdvance('m'), kLines * metrics.lineSpacing());
  return wanted.boundedTo(window.screen()->availableSize() * kMostOfScreen);
}

/// It is about the song that is shown, which must not change then.
bool isDialogOpen() { return QApplication::activeModalWidget() != nullptr; }

}  // namespace

MainWindow::MainWindow(FatalAlert& alert, QWidget* parent)
    : QMainWindow(parent),
      m_library(QBTabMgr::db(), QBSession::session()),
      m_actions(new LibraryActions(m_desk, this)),
      m_tree(new TreePanel(m_library, *m_actions)),
      m_tablature(new TablatureView),
      m_find(new FindBar(*m_tablature)),
      m_fretboard(new FretboardView),
      m_roll(new RollView),
      m_log(new LogPanel),
      m_jobs(new JobPanel),
      m_player(new PlayerBar),
      m_record(new RecordPanel),
      m_help(new HelpWindow(this)),
      m_editMenu(new EditMenu(*m_tablature, *m_fretboard, this)),
      m_songMenu(new SongMenu(this)),
      m_albumMenu(new AlbumMenu(*m_actions, this)),
      m_heard(new QLabel),
      m_place(new QLabel) {
  setWindowTitle(tr("Workbench .."));
  setAcceptDrops(true);
  statusBar()->addPermanentWidget(m_heard);
  statusBar()->addPermanentWidget(m_place);
  addPanels();
  connectViews();
  connectSound();
  addMenus();
  restoreLayout();
  m_tablature->setFocus();
  attachViews(alert);
  applyPreferences();
  connect(&m_scheme, &DesktopScheme::changed, this, &MainWindow::applyPreferences);
  connect(m_actions, &LibraryActions::refused, this, &MainWindow::say);
  connect(m_songMenu, &SongMenu::refused, this, &MainWindow::say);
  connect(m_actions, &LibraryActions::importStarted, this, [this](const QString& file) {
    Preferences().addRecentFile(file);
    rememberRunning();
    m_turnedToASong = false;
  });
  connect(m_actions, &LibraryActions::imported, this, &MainWindow::showImported);
  connect(m_tree, &TreePanel::refused, this, &MainWindow::say);
  connect(m_tree, &TreePanel::songActivated, m_tablature, qOverload<>(&QWidget::setFocus));
}

MainWindow::~MainWindow() {
  QBSession& session = QBSession::session();
  session.setActiveTreeNode(nullptr);
  session.attach({});
}

void MainWindow::addTablature() {
  m_tablature->setPlaceholderText(
      tr("Drop a recording of a guitar here, or choose File, Import Recording.\n"
         "To play one yourself, open the Record panel."));
  m_tablature->setZoom(Preferences().zoom());
  auto* centre = new QWidget;
  m_centre = new QVBoxLayout(centre);
  m_centre->setContentsMargins(0, 0, 0, 0);
  m_centre->setSpacing(0);
  m_centre->addWidget(m_tablature);
  m_centre->addWidget(m_find);
  setCentralWidget(centre);
}

void MainWindow::connectViews() {
  connect(m_tablature, &TablatureView::clicked, this,
          [](double x, double y) { QBSession::session().selectChord(x, y); });
  connect(m_tablature, &TablatureView::problemShown, this, [this] {
    say(tr(
        "That did not work, and the text says why; press Escape in it or click a song to go on"));
  });
  connect(m_tablature, &TablatureView::songWanted, this,
          [this] { QBSession::session().setActiveSong(m_song); });
  connect(m_tree, &TreePanel::songClicked, this, [this](QBSong* song) {
    if (song == m_song && m_tablature->song() != song) QBSession::session().setActiveSong(song);
  });
  connect(m_tablature, &TablatureView::loopEndChosen, this, &MainWindow::chooseLoopEnd);
  connect(m_tablature, &TablatureView::cursorMoved, this, &MainWindow::showCursor);
  connect(m_tablature, &TablatureView::zoomChanged, this,
          [](int percent) { Preferences().setZoom(percent); });
  connect(m_editMenu, &EditMenu::edited, this, &MainWindow::refreshViews);
  connect(m_editMenu, &EditMenu::refused, this, &MainWindow::say);
  connect(m_roll, &RollView::chordChosen, this,
          [this](int chord) { m_tablature->moveCursor(chord, m_tablature->cursorString()); });
}

void MainWindow::connectSound() {
  connect(m_tablature, &TablatureView::playToggled, m_player, &PlayerBar::toggle);
  connect(m_roll, &RollView::playToggled, m_player, &PlayerBar::toggle);
  connect(m_player, &PlayerBar::moved, this, &MainWindow::showPlaying);
  connect(m_player, &PlayerBar::resetLoopWanted, this, &MainWindow::resetLoop);
  connect(m_player, &PlayerBar::settingsWanted, this, [this] { changeSettings("sound"); });
  connect(m_player, &PlayerBar::refused, this, &MainWindow::say);
  connect(m_record, &RecordPanel::refused, this, &MainWindow::say);
  connect(m_record, &RecordPanel::recorded, this, [this](QBSong* song) {
    if (isDialogOpen())
      say(tr("%1 is recorded").arg(toText(song->title())));
    else
      QBSession::session().setActiveSong(song);
  });
}

void MainWindow::addPanels() {
  addToolBar(m_player);
  setDockNestingEnabled(true);
  setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
  QDockWidget* library = addPanel(tr("Library"), "library", m_tree, Qt::LeftDockWidgetArea);
  addTablature();  // in this order Tab goes through them
  QDockWidget* roll = addPanel(tr("Roll"), "roll", m_roll, Qt::BottomDockWidgetArea);
  QDockWidget* neck = addPanel(tr("Fretboard"), "fretboard", m_fretboard, Qt::BottomDockWidgetArea);
  QDockWidget* log = addPanel(tr("Log"), "log", m_log, Qt::BottomDockWidgetArea);
  QDockWidget* jobs = addPanel(tr("Jobs"), "jobs", m_jobs, Qt::BottomDockWidgetArea);
  QDockWidget* record = addPanel(tr("Record"), "record", m_record, Qt::BottomDockWidgetArea);
  const QSize size = firstSize(*this);
  resize(size);  // or the panels would share what is there before the window shows
  const QFontMetrics metrics(font());
  const bool isFlat = size.height() < kLinesForTwoRows * metrics.lineSpacing();
  const bool isNarrow = size.width() < kColumnsForTwoPanels * metrics.horizontalAdvance('m');
  isFlat ? tabifyDockWidget(neck, roll) : splitDockWidget(roll, neck, Qt::Vertical);
  isNarrow ? tabifyDockWidget(neck, log) : splitDockWidget(neck, log, Qt::Horizontal);
  tabifyDockWidget(log, jobs);
  tabifyDockWidget(jobs, record);
  (isNarrow ? neck : log)->raise();
  if (isFlat) neck->raise();
  resizeDocks({library}, {size.width() / 6}, Qt::Horizontal);
  resizeDocks({neck, log}, {size.width() / 2, size.width() / 4}, Qt::Horizontal);
  if (isFlat)
    resizeDocks({neck}, {size.height() / 3}, Qt::Vertical);
  else
    resizeDocks({roll, neck}, {size.height() / 5, size.height() / 4}, Qt::Vertical);
  connect(m_jobs, &JobPanel::jobAdded, jobs, &QWidget::raise);
  connect(m_jobs, &JobPanel::runningChanged, this, &MainWindow::rememberRunning);
}

QDockWidget* MainWindow::addPanel(const QString& title, const char* name, QWidget* panel,
                                  Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title);
  dock->setObjectName(name);
  dock->setWidget(panel);
  // Behind the tab of another panel its controls would take the focus unseen.
  QSizePolicy keepsItsPlace = panel->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  panel->setSizePolicy(keepsItsPlace);
  connect(dock, &QDockWidget::visibilityChanged, panel, &QWidget::setVisible);
  addDockWidget(area, dock);
  m_panels.append(dock);
  return dock;
}

void MainWindow::attachViews(FatalAlert& alert) {
  SessionViews views;
  views.output = m_log;
  views.tab = m_tablature;
  views.song = this;
  views.player = &m_player->controller();
  views.batch = m_jobs;
  views.tree = m_tree;
  views.help = m_help;
  views.songMenu = m_songMenu;
  views.albumMenu = m_albumMenu;
  views.savePanel = &m_savePanel;
  views.alert = &alert;
  QBSession::session().attach(views);
  QBSession::session().setSavesAtOnce(true);
}

void MainWindow::restoreLayout() {
  const Preferences preferences;
  restoreGeometry(preferences.windowGeometry());
  restoreState(preferences.windowState());
  m_tree->setOpenBranches(preferences.openBranches());
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

void MainWindow::greet() {
  Preferences preferences;
  for (const ImportUnderWay& each : preferences.runningImports()) tellOfInterrupted(each);
  preferences.setRunningImports({});
  m_tree->refreshAllContents();
  offerTakes();
  if (!preferences.askedForFolder()) offerWorkFolder();
}

/// What a recording has left that did not come to its end. Each is told of once.
void MainWindow::offerTakes() {
  Preferences preferences;
  const QStringList known = preferences.knownTakes();
  QStringList all;
  QStringList takes;
  for (const auto& take : LiveRecording::takesLeftBehind()) all.append(toText(take.string()));
  for (const QString& take : all)
    if (!known.contains(take)) takes.append(take);
  preferences.setKnownTakes(all);
  if (takes.isEmpty()) return;
  const QString files = takes.join(", ");
  m_log->addLogText(
      tr("Korvel ended while it recorded; the sound is in %1").arg(files).toStdString());
  m_centre->insertWidget(
      0,
      new OfferBar(tr("Korvel ended while it recorded. Make a song of what is in %1?").arg(files),
                   [this, takes] { importFiles(takes); }));
}

void MainWindow::tellOfInterrupted(const ImportUnderWay& import) {
  const QBSong* song = ImportDesk::mend(import);
  const QString file = toText(import.file);
  const QString text =
      song ? tr("Korvel ended while it imported %1; the song %2 has what was heard until then. "
                "Import the file again to have all of it.")
                 .arg(file, toText(song->title()))
           : tr("Korvel ended while it imported %1; import it again.").arg(file);
  m_log->addLogText(text.toStdString());
}

void MainWindow::offerWorkFolder() {
  Preferences().setAskedForFolder();
  const QString folder = offeredWorkFolder();
  const auto accept = [this, folder] {
    try {
      setWorkDirectory(folder.toStdString());
    } catch (const platform::FileError& problem) {
      say(translated(problem));
    }
  };
  m_centre->insertWidget(
      0, new OfferBar(tr("Keep exported tablature in %1? The settings name another folder.")
                          .arg(QString(folder).replace(QDir::homePath(), "~")),
                      accept));
}

void MainWindow::applyPreferences() {
  const Preferences preferences;
  applyTheme(preferences.theme(), m_scheme.isDark());
  m_tablature->setTabFamily(preferences.tabFont());
  m_desk.setDetection(preferences.detection(), preferences.detectionSettings());
}

void MainWindow::changeSettings(const char* page) {
  const QString language = Preferences().language();
  SettingsDialog dialog(this);
  if (page) dialog.showPage(page);
  if (dialog.exec() != QDialog::Accepted) return;
  applyPreferences();
  m_record->showChosenDevice();
  if (language == Preferences().language()) return;
  if (isBusy())
    say(tr("The language changes with the next start, as there is something going on"));
  else
    emit languageChosen();
}

bool MainWindow::isBusy() const {
  return m_player->song() || m_record->isBusy() || QBSession::session().hasRunningJobs();
}

/// So that the next start can tell, should this one be killed.
void MainWindow::rememberRunning() { Preferences().setRunningImports(ImportDesk::running()); }

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
  m_tablature->sayPlace();  // the tree tells of its current row as if it had the focus
  m_fretboard->setSong(song);
  m_roll->setSong(song);
  m_editMenu->setSong(song);
  showCursor(m_tablature->cursorChord());
  showPlaying();
  if (song) rememberSong();  // the program may be killed
}

void MainWindow::showCursor(int chord) {
  m_fretboard->showChord(chord);
  m_roll->showCursor(chord);
  m_place->setText(m_tablature->placeText());
}

/// The chord that is heard, or the one under the cursor when none is, or one of another song.
void MainWindow::showPlaying() {
  QBSong* heard = m_player->song();
  const bool shown = m_player->plays(m_song);
  const int chord = shown ? m_tablature->playingChord() : -1;
  m_heard->setText(heard ? tr("Playing %1").arg(toText(heard->title())) : QString());
  m_tree->model().setPlaying(heard);
  m_editMenu->setLocked(shown);
  m_roll->showPlaying(chord);
  m_fretboard->showChord(chord >= 0 ? chord : m_tablature->cursorChord());
}

void MainWindow::resetLoop() {
  if (m_player->plays(m_song)) return say(tr("Stop playing first, then change the loop"));
  if (m_song) clearLoop(*m_song);
  refreshViews();
}

/// After a change of the song.
void MainWindow::refreshViews() {
  m_tablature->refresh();
  m_roll->refresh();
  showCursor(m_tablature->cursorChord());
}

void MainWindow::chooseLoopEnd(int chord) {
  if (!m_song) return;
  moveLoopEnd(*m_song, chord);
  refreshViews();
}

/// Unless the user has turned to another song meanwhile.
void MainWindow::showImported(const QString& file, QBSong* song) {
  rememberRunning();
  const QString name = QFileInfo(file).fileName();
  if (song->isDeleted()) return;
  if (!song->hasTabulature())
    say(tr("%1: no tones were heard in it; is it a guitar alone, and loud enough?").arg(name));
  else if (m_turnedToASong || isDialogOpen())
    say(tr("%1 is imported").arg(name));
  else
    showNewSong(song);
}

void MainWindow::showNewSong(QBSong* song) {
  QBSession::session().setActiveSong(song);
  say(tr("Space plays it, digits change the fret at the cursor, the menu Song arranges it"));
}

void MainWindow::say(const QString& text) { statusBar()->showMessage(text, kSayMilliseconds); }

QString MainWindow::log() const { return m_log->toPlainText(); }

void MainWindow::setLog(const QString& text) { m_log->setPlainText(text); }

QString MainWindow::statusMessage() const { return statusBar()->currentMessage(); }

void MainWindow::rememberSong() const {
  const QBAlbum* album = m_song ? m_song->album() : nullptr;
  Preferences().setLastSong(album ? toText(album->name() + '/' + m_song->title()) : QString());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  rememberSong();
  Preferences preferences;
  preferences.setWindowGeometry(saveGeometry());
  preferences.setWindowState(saveState());
  preferences.setOpenBranches(m_tree->openBranches());
  endWork();
  QBSession::session().sayGoodBye();
  event->accept();
}

/// What is heard of a long recording may take some seconds more, for which the user need not see
/// the window.
void MainWindow::endWork() {
  m_player->stop();
  rememberRunning();
  if (m_record->isBusy() || !ImportDesk::running().empty()) {
    hide();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  m_record->finish();
  Preferences().setRunningImports(ImportDesk::endAll());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  importFiles(TreeModel::filesOf(*event->mimeData()));
  event->acceptProposedAction();
}

}  // namespace korvel::ui
