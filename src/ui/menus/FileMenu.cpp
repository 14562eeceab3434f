// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/menus/FileMenu.h"

#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>

#include "model/songs/QBSong.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/ExportFile.h"
#include "ui/library/LibraryActions.h"
#include "ui/page/SongSheets.h"
#include "ui/paper/PaperFiles.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

FileMenu::FileMenu(LibraryActions& actions, const SongSheets& sheets, QWidget* parent)
    : QMenu(tr("&File"), parent), m_actions(actions), m_sheets(sheets) {
  addAction(tr("&Import Recording ..."), QKeySequence::Open, this,
            [this] { m_actions.chooseAndImport(); });
  m_recent = addMenu(tr("Import &Recent"));
  addAction(tr("&New Album"), QKeySequence::New, &actions, &LibraryActions::createAlbum);
  addSeparator();
  addSongEntries();
  addSeparator();
  addAction(tr("&Settings ..."), tr("Ctrl+,"), this, &FileMenu::settingsWanted);
  addAction(tr("&Quit"), QKeySequence::Quit, this, &FileMenu::quitWanted);
  connect(this, &QMenu::aboutToShow, this, [this] {
    listRecentFiles();
    enableForSong(hasSong());
  });
  connect(&actions, &LibraryActions::paperWanted, this,
          [this](QBSong* song, const QString& file) { save(m_sheets.tablatureOf(*song), file); });
  connect(&actions, &LibraryActions::pageWanted, this, [this](QBSong* song, const QString& file) {
    write([&] {
      return writePage(*song, file.toStdString(),
                       [this](const auto& numbered) { return mayReplace(numbered); });
    });
  });
  // Their keys work whatever the menu said when it was open.
  connect(this, &QMenu::aboutToHide, this, [this] { enableForSong(true); });
}

void FileMenu::addSongEntries() {
  addForSong(tr("&Export Song ..."), tr("Ctrl+E"), [this] { m_actions.exportSongFile(m_song); });
  addForSong(tr("Export as P&DF ..."), {}, [this] { exportPdf(); });
  addForSong(tr("&Print ..."), QKeySequence::Print, [this] { printSong(); });
}

void FileMenu::addForSong(const QString& title, const QKeySequence& keys,
                          const std::function<void()>& act) {
  m_forSong.append(addAction(title, keys, this, [this, act] {
    if (hasSong())
      act();
    else
      emit refused(tr("Choose a song with chords first"));
  }));
}

void FileMenu::setSong(QBSong* song) { m_song = song; }

bool FileMenu::hasSong() const { return m_song && m_song->hasTabulature(); }

void FileMenu::enableForSong(bool enabled) {
  for (QAction* action : m_forSong) action->setEnabled(enabled);
}

void FileMenu::listRecentFiles() {
  m_recent->clear();
  for (const QString& file : Preferences().recentFiles())
    m_recent
        ->addAction(QFileInfo(file).fileName(), this,
                    [this, file] { m_actions.importFiles({file}); })
        ->setToolTip(file);
  m_recent->setEnabled(!m_recent->isEmpty());
}

void FileMenu::printSong() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, parentWidget());
  if (dialog.exec() == QDialog::Accepted && !printOn(printer, m_sheets.frontOf(*m_song)))
    emit refused(tr("The printer took nothing; look whether it is switched on"));
}

void FileMenu::exportPdf() {
  const QString file = chooseExportFile(parentWidget(), tr("Export as PDF"), m_song->title(),
                                        tr("PDF documents (*.pdf)"), {".pdf", ".png", ".svg"});
  if (!file.isEmpty()) save(m_sheets.frontOf(*m_song), file);
}

void FileMenu::save(const PaperWork& work, const QString& file) {
  write([&] {
    return savePaper(work, file.toStdString(),
                     [this](const auto& numbered) { return mayReplace(numbered); });
  });
}

bool FileMenu::mayReplace(const std::filesystem::path& file) {
  return m_actions.mayReplace(toText(file.string()));
}

void FileMenu::write(const std::function<std::vector<std::filesystem::path>()>& write) {
  try {
    const auto files = write();
    if (files.size() > 1)
      QBSession::session().addToLog(platform::UserText(
          platform::phrase("Message", "Too high for one picture, and so in several:")));
    for (const auto& file : files)
      QBSession::session().addToLog(platform::UserText::verbatim(file.string()));
  } catch (const std::exception& problem) {
    emit refused(translated(problem));
  }
}

}  // namespace korvel::ui
