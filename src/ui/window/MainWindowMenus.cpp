// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>

#include "model/book/QBTextLoader.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/FileError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/SelfCheckDialog.h"
#include "ui/library/AlbumMenu.h"
#include "ui/library/LibraryActions.h"
#include "ui/library/SongMenu.h"
#include "ui/library/TreePanel.h"
#include "ui/views/TablaturePages.h"
#include "ui/views/TablatureView.h"
#include "ui/window/EditMenu.h"
#include "ui/window/FindBar.h"
#include "ui/window/MainWindow.h"
#include "ui/window/PlayerBar.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
void MainWindow::addMenus() {
  addFileMenu();
  completeEditMenu();
  menuBar()->addMenu(m_songMenu);
  menuBar()->addMenu(m_albumMenu);
  addPlayMenu();
  addViewMenu();
  addHelpMenu();
}

void MainWindow::addFileMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&File"));
  menu->addAction(tr("&Import Recording ..."), QKeySequence::Open, this,
                  [this] { m_actions->chooseAndImport(); });
  m_recent = menu->addMenu(tr("Import &Recent"));
  menu->addAction(tr("&New Album"), QKeySequence::New, m_actions, &LibraryActions::createAlbum);
  menu->addSeparator();
  QAction* save = menu->addAction(tr("&Export Song ..."), tr("Ctrl+E"), this, [this] {
    withSong([this] { m_actions->exportSongFile(m_song); });
  });
  QAction* pdf = menu->addAction(tr("Export as P&DF ..."), this,
                                 [this] { withSong([this] { exportPdf(); }); });
  QAction* print = menu->addAction(tr("&Print ..."), QKeySequence::Print, this,
                                   [this] { withSong([this] { printSong(); }); });
  menu->addSeparator();
  menu->addAction(tr("&Settings ..."), tr("Ctrl+,"), this, [this] { changeSettings(); });
  menu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
  connect(menu, &QMenu::aboutToShow, this, [this, save, pdf, print] {
    listRecentFiles();
    for (QAction* action : {save, pdf, print})
      action->setEnabled(m_song && m_song->hasTabulature());
  });
  // Their keys work whatever the menu said when it was open.
  connect(menu, &QMenu::aboutToHide, this, [save, pdf, print] {
    for (QAction* action : {save, pdf, print}) action->setEnabled(true);
  });
}

void MainWindow::withSong(const std::function<void()>& act) {
  if (m_song && m_song->hasTabulature())
    act();
  else
    say(tr("Choose a song with chords first"));
}

void MainWindow::completeEditMenu() {
  menuBar()->addMenu(m_editMenu);
  m_editMenu->addSeparator();
  m_editMenu->addAction(tr("&Find Chord ..."), QKeySequence::Find, m_find, &FindBar::open);
  m_editMenu->addAction(tr("Search &Library ..."), tr("Ctrl+L"), m_tree, &TreePanel::focusSearch);
  addLibraryEdits();
}

void MainWindow::addLibraryEdits() {
  m_editMenu->addSeparator();
  m_editMenu->addAction(tr("Rena&me in Library"), tr("F2"), this, [this] {
    goTo(*m_panels.front());
    m_tree->renameCurrent();
  });
  QMenu* albums = m_editMenu->addMenu(tr("Mo&ve Song to Album"));
  connect(m_editMenu, &QMenu::aboutToShow, this, [this, albums] { listAlbums(*albums); });
}

/// Those that the song that is shown may move to.
void MainWindow::listAlbums(QMenu& menu) {
  menu.clear();
  const QBAlbum* own = m_song ? m_song->album() : nullptr;
  for (const auto& album : QBTabMgr::db().albums())
    if (own && album != own)
      menu.addAction(toText(album->name()).replace('&', "&&"), this, [this, album] {
        moveSong(*m_song, *album);
        m_tree->showSong(m_song);
      });
  menu.setEnabled(!menu.isEmpty());
}

void MainWindow::addPlayMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Play"));
  QAction* play = menu->addAction(tr("&Play or Stop"), m_player, &PlayerBar::toggle);
  play->setShortcuts({QKeySequence(tr("Ctrl+Space")), QKeySequence(Qt::Key_MediaTogglePlayPause)});
  menu->addSeparator();
  menu->addAction(tr("Set &Loop End Here"), tr("Ctrl+Return"), m_tablature,
                  &TablatureView::chooseLoopEnd);
  menu->addAction(tr("&Reset Loop"), this, &MainWindow::resetLoop);
}

void MainWindow::addViewMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&View"));
  menu->addAction(tr("Zoom &In"), QKeySequence::ZoomIn, m_tablature, &TablatureView::zoomIn);
  menu->addAction(tr("Zoom &Out"), QKeySequence::ZoomOut, m_tablature, &TablatureView::zoomOut);
  menu->addAction(tr("&Actual Size"), tr("Ctrl+0"), m_tablature, &TablatureView::resetZoom);
  menu->addSeparator();
  addGoToMenu(*menu);
  menu->addSeparator();
  for (const QDockWidget* panel : m_panels) menu->addAction(panel->toggleViewAction());
  menu->addSeparator();
  menu->addAction(m_player->toggleViewAction());
}

/// In the order of the window, the tablature after the library.
void MainWindow::addGoToMenu(QMenu& menu) {
  QMenu* places = menu.addMenu(tr("&Go To"));
  int number = 1;
  const auto key = [&number] { return QKeySequence(Qt::ALT | Qt::Key(Qt::Key_0 + number++)); };
  for (QDockWidget* panel : m_panels) {
    places->addAction(panel->windowTitle(), key(), this, [panel] { goTo(*panel); });
    if (panel == m_panels.front())
      places->addAction(tr("Tablature"), key(), this, [this] { m_tablature->setFocus(); });
  }
}

void MainWindow::goTo(QDockWidget& panel) {
  panel.show();
  panel.raise();
  panel.widget()->show();  // it may be told later that it is in front
  panel.widget()->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::addHelpMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Help"));
  menu->addAction(tr("&Contents"), QKeySequence::HelpContents, this, &MainWindow::showHelp);
  menu->addAction(tr("&Self Check"), this, [this] { SelfCheckDialog(this).exec(); });
}

void MainWindow::listRecentFiles() {
  m_recent->clear();
  for (const QString& file : Preferences().recentFiles())
    m_recent->addAction(QFileInfo(file).fileName(), this, [this, file] { importFiles({file}); })
        ->setToolTip(file);
  m_recent->setEnabled(!m_recent->isEmpty());
}

void MainWindow::printSong() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() == QDialog::Accepted &&
      !printTablature(*m_song, m_tablature->tabFont(), printer))
    say(tr("The printer took nothing; look whether it is switched on"));
}

void MainWindow::exportPdf() {
  Preferences preferences;
  const QString name = toText(fileNameOf(m_song->title())) + ".pdf";
  const QString file = QFileDialog::getSaveFileName(this, tr("Export as PDF"),
                                                    QDir(preferences.exportFolder()).filePath(name),
                                                    tr("PDF documents (*.pdf)"));
  if (file.isEmpty()) return;
  preferences.setExportFolder(QFileInfo(file).absolutePath());
  try {
    savePdf(*m_song, m_tablature->tabFont(), file.toStdString());
    QBSession::session().addToLog(file.toStdString());
  } catch (const platform::FileError& problem) {
    say(translated(problem));
  }
}

void MainWindow::showHelp() {
  const std::string page = tr("index", "the page of help in the user's language").toStdString();
  QBSession::session().drawHelp(QBTextLoader::db().loadFromFile(page).value_or(""));
}

}  // namespace korvel::ui
