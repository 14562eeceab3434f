// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QVBoxLayout>

#include "model/book/QBTextLoader.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/HelpWindow.h"
#include "ui/dialogs/SelfCheckDialog.h"
#include "ui/dialogs/SettingsDialog.h"
#include "ui/dialogs/TapDialog.h"
#include "ui/dialogs/guides/PractiseDialog.h"
#include "ui/library/AlbumMenu.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/SongGuides.h"
#include "ui/library/SongMenu.h"
#include "ui/library/TreePanel.h"
#include "ui/menus/DiagramSwitches.h"
#include "ui/menus/DoubtMenu.h"
#include "ui/menus/EditMenu.h"
#include "ui/menus/FileMenu.h"
#include "ui/menus/RecordingMenu.h"
#include "ui/menus/RhythmMenu.h"
#include "ui/page/PageDesk.h"
#include "ui/page/SongSheets.h"
#include "ui/roll/RollView.h"
#include "ui/sound/Moments.h"
#include "ui/sound/PlayerBar.h"
#include "ui/sound/PracticePanel.h"
#include "ui/sound/RecordPanel.h"
#include "ui/views/FretboardView.h"
#include "ui/views/TablatureView.h"
#include "ui/window/Arrivals.h"
#include "ui/window/FindBar.h"
#include "ui/window/Greeting.h"
#include "ui/window/JobPanel.h"
#include "ui/window/LastSong.h"
#include "ui/window/LogPanel.h"
#include "ui/window/ShownSong.h"
#include "ui/window/offers/Offers.h"
#include "workflow/recordings/KeptSounds.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

constexpr int kSayMilliseconds = 15000;

}  // namespace

MainWindow::MainWindow(FatalAlert& alert, QWidget* parent)
    : QMainWindow(parent),
      m_library(QBTabMgr::db(), QBSession::session()),
      m_guides(new SongGuides(this)),
      m_actions(new LibraryActions(m_desk, *m_guides, this)),
      m_tree(new TreePanel(m_library, *m_actions)),
      m_tablature(new TablatureView),
      m_page(new PageDesk),
      m_sheets(new SongSheets(*m_tablature, *m_page)),
      m_find(new FindBar(*m_tablature)),
      m_fretboard(new FretboardView),
      m_roll(new RollView),
      m_log(new LogPanel),
      m_jobs(new JobPanel),
      m_player(new PlayerBar),
      m_moments(new Moments(m_player->mix(), this)),
      m_practice(new PracticePanel(*m_player)),
      m_record(new RecordPanel),
      m_help(new HelpWindow(this)),
      m_fileMenu(new FileMenu(*m_actions, *m_sheets, this)),
      m_editMenu(new EditMenu({*m_tablature, *m_fretboard, *m_find, *m_tree}, this)),
      m_songMenu(new SongMenu(*m_guides, this)),
      m_albumMenu(new AlbumMenu(*m_actions, this)),
      m_recordingMenu(new RecordingMenu({m_player->mix(), *m_moments, *m_tablature}, this)),
      m_diagrams(new DiagramSwitches(*m_tablature, *m_fretboard, this)),
      m_shown(new ShownSong({*m_tablature, *m_fretboard, *m_page, *m_roll, *m_editMenu, *m_player,
                             *m_practice, *m_moments},
                            this)),
      m_arrivals(new Arrivals(this)),
      m_work(*m_player, *m_record, *this),
      m_heard(new QLabel),
      m_doubts(new QLabel),
      m_place(new QLabel) {
  setWindowTitle(tr("Workbench .."));
  setAcceptDrops(true);
  layOut();
  connectParts();
  connectLibrary();
  addMenus();
  m_panels->restore();
  m_tree->setOpenBranches(Preferences().openBranches());
  m_sheets->focusFront();
  attachViews(alert);
  applyPreferences();
}

MainWindow::~MainWindow() {
  QBSession& session = QBSession::session();
  session.setActiveTreeNode(nullptr);
  session.attach({});
}

// ---- parts

void MainWindow::layOut() {
  // What is longer than the room beside the others can be read there.
  connect(statusBar(), &QStatusBar::messageChanged, statusBar(), &QWidget::setToolTip);
  statusBar()->addPermanentWidget(m_heard);
  statusBar()->addPermanentWidget(m_doubts);
  statusBar()->addPermanentWidget(m_place);
  addToolBar(m_player);
  m_panels.emplace(*this, Panels::Contents{m_tree, newCentre(), m_roll, m_fretboard, m_log, m_jobs,
                                           m_record, m_practice});
}

QWidget* MainWindow::newCentre() {
  m_tablature->setPlaceholderText(
      tr("Drop a recording of a guitar here, or choose File, Import Recording.\n"
         "To play one yourself, open the Record panel."));
  m_tablature->setZoom(Preferences().zoom());
  auto* centre = new QWidget;
  m_centre = new QVBoxLayout(centre);
  m_centre->setContentsMargins(0, 0, 0, 0);
  m_centre->setSpacing(0);
  m_centre->addWidget(m_sheets);
  m_centre->addWidget(m_find);
  m_offers = new Offers(*m_centre, m_desk, *m_recordingMenu, this);
  return centre;
}

void MainWindow::connectParts() {
  connect(m_tablature, &TablatureView::problemShown, this, [this] {
    say(tr(
        "That did not work, and the text says why; press Escape in it or click a song to go on"));
  });
  connect(m_tablature, &TablatureView::problemShown, m_sheets, &SongSheets::showTablature);
  connect(m_diagrams, &DiagramSwitches::leftHandedChanged, m_page, &PageDesk::setLeftHanded);
  connect(m_tablature, &TablatureView::zoomChanged, this,
          [](int percent) { Preferences().setZoom(percent); });
  connect(m_shown, &ShownSong::placeChanged, m_place, &QLabel::setText);
  connect(m_shown, &ShownSong::heardChanged, this, &MainWindow::showHeard);
  connect(m_shown, &ShownSong::refused, this, &MainWindow::say);
  connect(m_player, &PlayerBar::settingsWanted, this, [this] { changeSettings("sound"); });
  connect(m_player, &PlayerBar::refused, this, &MainWindow::say);
  connect(m_record, &RecordPanel::refused, this, &MainWindow::say);
  connect(m_record, &RecordPanel::recorded, m_arrivals, &Arrivals::showRecorded);
  connect(m_jobs, &JobPanel::jobAdded, this, [this] { m_panels->raiseJobs(); });
  connect(m_jobs, &JobPanel::runningChanged, this, &MainWindow::rememberRunning);
  connect(m_arrivals, &Arrivals::said, this, &MainWindow::say);
  connect(&m_scheme, &DesktopScheme::changed, this, &MainWindow::applyPreferences);
}

void MainWindow::connectLibrary() {
  connect(m_actions, &LibraryActions::refused, this, &MainWindow::say);
  connect(m_actions, &LibraryActions::importStarted, this, [this](const QString& file) {
    Preferences().addRecentFile(file);
    rememberRunning();
    m_arrivals->importStarted();
    m_offers->offerToKeep(file);
  });
  connect(m_actions, &LibraryActions::pieceStarted, this, [this](const QString& file) {
    Preferences().addRecentFile(file);
    m_arrivals->importStarted();
  });
  connect(m_actions, &LibraryActions::alreadyThere, m_offers, &Offers::offerKnown);
  connect(m_actions, &LibraryActions::tuningFound, m_offers, &Offers::offerTuning);
  connect(m_actions, &LibraryActions::imported, this, &MainWindow::rememberRunning);
  connect(m_actions, &LibraryActions::imported, m_arrivals, &Arrivals::showImported);
  connect(m_actions, &LibraryActions::importRefused, m_tablature, &TablatureView::advise);
  connect(m_actions, &LibraryActions::importRefused, this, &MainWindow::say);
  connect(m_tree, &TreePanel::refused, this, &MainWindow::say);
  connect(m_tree, &TreePanel::titleChanged, this, [this] {
    if (m_tablature->song()) m_shown->refresh();  // or a text is shown in its place
  });
  connect(m_tree, &TreePanel::songActivated, m_sheets, &SongSheets::focusFront);
  connect(m_tree, &TreePanel::songClicked, this, [this](QBSong* song) {
    if (song == m_shown->song() && m_tablature->song() != song)
      QBSession::session().setActiveSong(song);
  });
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

// ---- menus

void MainWindow::addMenus() {
  menuBar()->addMenu(m_fileMenu);
  connect(m_fileMenu, &FileMenu::settingsWanted, this, [this] { changeSettings(); });
  connect(m_fileMenu, &FileMenu::quitWanted, this, &QWidget::close);
  connect(m_fileMenu, &FileMenu::refused, this, &MainWindow::say);
  menuBar()->addMenu(m_editMenu);
  connect(m_editMenu, &EditMenu::refused, this, &MainWindow::say);
  connect(m_editMenu, &EditMenu::renameWanted, this, [this] {
    m_panels->goToLibrary();
    m_tree->renameCurrent();
  });
  connect(&m_editMenu->rhythm(), &RhythmMenu::tapsWanted, this, &MainWindow::tapAlong);
  connect(&m_editMenu->doubts(), &DoubtMenu::said, this, &MainWindow::say);
  connect(&m_editMenu->doubts(), &DoubtMenu::leftChanged, this, &MainWindow::showDoubts);
  menuBar()->addMenu(m_songMenu);
  connect(m_songMenu, &SongMenu::refused, this, &MainWindow::say);
  connect(m_guides, &SongGuides::said, this, &MainWindow::say);
  connect(m_guides, &SongGuides::practiceWanted, this, &MainWindow::practise);
  menuBar()->addMenu(m_albumMenu);
  addPlayMenu();
  addViewMenu();
  addHelpMenu();
}

void MainWindow::addPlayMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Play"));
  QAction* play = menu->addAction(tr("&Play or Stop"), m_player, &PlayerBar::toggle);
  play->setShortcuts({QKeySequence(tr("Ctrl+Space")), QKeySequence(Qt::Key_MediaTogglePlayPause)});
  menu->addMenu(m_recordingMenu);
  connect(m_recordingMenu, &RecordingMenu::said, this, &MainWindow::say);
  connect(m_recordingMenu, &RecordingMenu::lost, m_offers, &Offers::offerToFind);
  connect(m_recordingMenu, &RecordingMenu::found, m_shown, &ShownSong::refresh);
  connect(m_player, &PlayerBar::refused, m_recordingMenu, &RecordingMenu::lookForLost);
  connect(m_moments, &Moments::refused, m_recordingMenu, &RecordingMenu::lookForLost);
  connect(m_moments, &Moments::unheard, m_recordingMenu, &RecordingMenu::lookForLost);
  menu->addSeparator();
  menu->addAction(tr("Set &Loop End Here"), tr("Ctrl+Return"), m_tablature,
                  &TablatureView::chooseLoopEnd);
  menu->addAction(tr("&Begin Loop Here"), tr("["), m_shown, &ShownSong::beginLoop);
  menu->addAction(tr("&End Loop Here"), tr("]"), m_shown, &ShownSong::endLoop);
  menu->addAction(tr("&Reset Loop"), m_shown, &ShownSong::resetLoop);
  QAction* bars = menu->addAction(tr("Loop &Whole Bars"));
  bars->setCheckable(true);
  bars->setChecked(Preferences().loopsBars());
  connect(bars, &QAction::toggled, this, [](bool on) { Preferences().setLoopsBars(on); });
}

void MainWindow::addViewMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&View"));
  m_sheets->addZooms(*menu);
  menu->addSeparator();
  m_diagrams->addTo(*menu);
  menu->addSeparator();
  QMenu* places = menu->addMenu(tr("&Go To"));
  m_panels->addPlaces(*places, [this] { m_sheets->goToTablature(); });
  m_sheets->addPage(*places);
  m_tree->addOrders(*menu->addMenu(tr("&Sort Library")));
  menu->addSeparator();
  m_panels->addToggles(*menu);
  menu->addSeparator();
  menu->addAction(m_player->toggleViewAction());
}

void MainWindow::addHelpMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Help"));
  menu->addAction(tr("&Contents"), QKeySequence::HelpContents, this, &MainWindow::showHelp);
  menu->addAction(tr("&Self Check"), this, [this] { SelfCheckDialog(this).exec(); });
}

void MainWindow::showHelp() {
  const std::string page = tr("index", "the page of help in the user's language").toStdString();
  QBSession::session().drawHelp(QBTextLoader::db().loadFromFile(page).value_or(""));
}

void MainWindow::practise(QBSong* song) {
  const Preferences preferences;
  const Practice before{.passage = std::nullopt,
                        .speed = m_player->speed(),
                        .countIn = preferences.countIn(),
                        .metronome = preferences.metronome()};
  PractiseDialog dialog(*song, before, PlayerBar::kSlowest, PlayerBar::kFastest, this);
  if (dialog.exec() != QDialog::Accepted) return;
  m_player->stop();
  if (QBSession::session().activeSong() != song) QBSession::session().setActiveSong(song);
  if (m_shown->choosePassage(dialog.practice())) m_player->practise(dialog.practice());
}

void MainWindow::tapAlong() {
  m_player->stop();
  TapDialog dialog(*m_player, this);
  const bool tapped = dialog.exec() == QDialog::Accepted;
  m_player->stop();
  if (tapped) m_editMenu->rhythm().setTaps(dialog.taps());
}

void MainWindow::applyPreferences() {
  const Preferences preferences;
  applyTheme(preferences.theme(), m_scheme.isDark());
  m_tablature->setTabFamily(preferences.tabFont());
  m_desk.setDetection(preferences.detection(), preferences.detectionSettings());
  m_desk.setKeepsSounds(preferences.keepsRecordings());
}

void MainWindow::changeSettings(const char* page) {
  const QString language = Preferences().language();
  SettingsDialog dialog(this);
  if (page) dialog.showPage(page);
  if (dialog.exec() != QDialog::Accepted) return;
  applyPreferences();
  m_record->showChosenDevice();
  if (language == Preferences().language()) return;
  if (m_work.isBusy())
    say(tr("The language changes with the next start, as there is something going on"));
  else
    emit languageChosen();
}

// ---- from one start to the next

void MainWindow::greet() {
  auto* greeting = new Greeting(*m_centre, this);
  connect(greeting, &Greeting::told, this,
          [this](const QString& line) { m_log->appendPlainText(line); });
  connect(greeting, &Greeting::importWanted, this, &MainWindow::importFiles);
  connect(greeting, &Greeting::goOnWanted, m_actions, &LibraryActions::goOn);
  connect(greeting, &Greeting::refused, this, &MainWindow::say);
  greeting->say();
  if (!QBTabMgr::db().context().isReadOnly()) sweepKeptSounds(QBTabMgr::db());
  m_record->setEnabled(!QBTabMgr::db().context().isReadOnly());
  m_tree->refreshAllContents();
}

void MainWindow::openLastSong() {
  if (QBSong* song = lastSong()) QBSession::session().setActiveSong(song);
}

void MainWindow::rememberRunning() { m_work.remember(); }

void MainWindow::closeEvent(QCloseEvent* event) {
  const Quitting quitting = m_work.askBeforeQuitting();
  if (quitting == Quitting::notNow) return event->ignore();
  emit ending();
  rememberLastSong(m_shown->song());
  m_panels->remember();
  Preferences().setOpenBranches(m_tree->openBranches());
  m_work.end(quitting);
  QBSession::session().sayGoodBye();
  event->accept();
}

// ---- what comes from outside

void MainWindow::importFiles(const QStringList& files) { m_actions->importFiles(files); }

void MainWindow::comeToFront(const QStringList& files) {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
  importFiles(files);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  importFiles(TreeModel::filesOf(*event->mimeData()));
  event->acceptProposedAction();
}

void MainWindow::setActiveSong(QBSong* song) {
  m_arrivals->songShown();
  m_tree->showSong(song);
  m_shown->set(song);
  m_recordingMenu->setSong(song);
  m_fileMenu->setSong(song);
  if (song) rememberLastSong(m_shown->song());  // the program may be killed
}

void MainWindow::showDoubts(int places) {
  m_doubts->setText(places > 0 ? tr("Doubtful: %1").arg(places) : QString());
}

void MainWindow::showHeard(QBSong* heard) {
  m_heard->setText(heard ? tr("Playing %1").arg(toText(heard->title())) : QString());
  m_tree->model().setPlaying(heard);
}

// ---- words

void MainWindow::say(const QString& text) { statusBar()->showMessage(text, kSayMilliseconds); }

void MainWindow::tell(const std::exception& problem) {
  say(translated(problem));
  m_log->addLogText(platform::textOf(problem));
}

QString MainWindow::statusMessage() const { return statusBar()->currentMessage(); }

QString MainWindow::log() const { return m_log->toPlainText(); }

void MainWindow::setLog(const QString& text) { m_log->setPlainText(text); }

}  // namespace korvel::ui
