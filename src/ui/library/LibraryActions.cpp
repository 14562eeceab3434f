// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/LibraryActions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <optional>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "playback/SongRenderer.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/SoundFileNames.h"
#include "ui/desktop/Synthesizers.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/CalibrationDialog.h"
#include "ui/dialogs/TuningDialog.h"
#include "ui/library/SongGuides.h"
#include "ui/library/SongMenu.h"
#include "workflow/arranging/SongOrders.h"
#include "workflow/exporting/ExportAlbumCommand.h"
#include "workflow/hearing/KnownRecordings.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/InstrumentNode.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/QBSongNode.h"
#include "workflow/library/TuningNode.h"
#include "workflow/session/Edit.h"
#include "workflow/session/NodeVisitor.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

/// After the events that wait already; 0 would come before them.
constexpr auto kNextTurn = 1ms;

struct FormatName {
  SongFormat format;
  const char* name;
  const char* otherEnding;
};

constexpr std::array kFormats{
    FormatName{SongFormat::text, QT_TRANSLATE_NOOP("SongFormat", "Text tablature"), ".tab"},
    FormatName{SongFormat::musicXml, QT_TRANSLATE_NOOP("SongFormat", "MusicXML score"), ".xml"},
    FormatName{SongFormat::midi, QT_TRANSLATE_NOOP("SongFormat", "MIDI file"), ".midi"},
};

const QString kPdf = ".pdf";

QString nameOf(const FormatName& format) {
  return QCoreApplication::translate("SongFormat", format.name);
}

QString extension(SongFormat format) { return toText(extensionOf(format)); }

/// As file dialogs have it: "MIDI file (*.mid)".
QString filterOf(const FormatName& format) {
  return nameOf(format) + " (*" + extension(format.format) + ')';
}

QString endingOf(std::size_t format) {
  return format < kFormats.size() ? extension(kFormats.at(format).format) : QString(".wav");
}

/// A name that ends on what the file shall be knows it better than the dialog's filter. Other dots
/// are the title's own: "01. Prelude".
std::optional<std::size_t> formatNamedBy(const QString& file) {
  const auto ends = [&](const QString& ending) {
    return file.endsWith(ending, Qt::CaseInsensitive);
  };
  for (std::size_t format = 0; format <= kFormats.size(); ++format)
    if (ends(endingOf(format))) return format;
  for (std::size_t format = 0; format < kFormats.size(); ++format)
    if (ends(kFormats.at(format).otherEnding)) return format;
  return std::nullopt;
}

QString proposedPath(const std::string& title, const QString& ending = {}) {
  return QDir(Preferences().exportFolder()).filePath(toText(fileNameOf(title)) + ending);
}

/// What to do about a file that was not imported; the log has the reason.
QString adviceFor(const QString& file) {
  const QFileInfo info(file);
  const QString name = info.fileName();
  if (!info.exists())
    return LibraryActions::tr("%1 is not on this computer; save it here, or look where it went")
        .arg(name);
  if (!info.isReadable())
    return LibraryActions::tr("%1 may not be read; change its permissions or copy it").arg(name);
  return LibraryActions::tr(
             "%1 was not imported: choose another sound file, or convert it to WAV first")
      .arg(name);
}

}  // namespace

LibraryActions::LibraryActions(ImportDesk& desk, SongGuides& guides, QWidget* window)
    : QObject(window), m_desk(desk), m_guides(guides), m_window(window) {}

void LibraryActions::attempt(const std::function<void()>& edit) {
  try {
    edit();
  } catch (const platform::UserError& problem) {
    emit refused(translated(problem));
  }
}

// ---- menus

void LibraryActions::fillRootMenu(QMenu& menu) {
  menu.addAction(tr("Import WAV File"), this, [this] { chooseAndImport(); });
  menu.addAction(tr("New Album"), this, &LibraryActions::createAlbum);
}

void LibraryActions::fillTuningsMenu(QMenu& menu) {
  const auto add = [&](const QString& title, KnownTuning from) {
    menu.addAction(title, this, [this, from] { attempt([from] { newTuning(from); }); });
  };
  add(tr("New from Standard"), KnownTuning::standard);
  add(tr("New from Drop D"), KnownTuning::dropD);
  add(tr("New from Open G"), KnownTuning::openG);
}

void LibraryActions::fillInstrumentsMenu(QMenu& menu) {
  menu.addAction(tr("Import Definition File ..."), this, &LibraryActions::chooseInstrument);
  menu.addAction(tr("Calibrate From Recorded Notes ..."), this,
                 &LibraryActions::calibrateInstrument);
}

class LibraryActions::MenuOfNode final : public NodeVisitor {
 public:
  MenuOfNode(LibraryActions& actions, QMenu& menu) : m_actions(actions), m_menu(menu) {}

  void visit(QBSongNode& node) override { m_actions.fillSongMenu(m_menu, node.shared_from_this()); }
  void visit(AlbumNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillAlbumMenu(m_menu, [album = node.shared_from_this()] { return album->album(); });
  }
  void visit(TuningNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillTuningMenu(m_menu, *node.tuning());
  }
  void visit(InstrumentNode& node) override {
    m_actions.addRename(m_menu, node);
    m_actions.fillInstrumentMenu(m_menu, *node.instrument());
  }

 private:
  LibraryActions& m_actions;
  QMenu& m_menu;
};

void LibraryActions::fillMenu(QMenu& menu, TreeNode& node) {
  MenuOfNode filled(*this, menu);
  node.accept(filled);
}

void LibraryActions::fillSongMenu(QMenu& menu, const std::shared_ptr<QBSongNode>& node) {
  if (!node->song()->isWhole()) fillUnheardMenu(menu, *node->song());
  m_guides.addTo(menu, [node] { return node->song(); });
  addSongCommands(menu, [this, node](const SongCommand& command) {
    attempt([&] { orderOf(*node, command); });
  });
  if (node->song()->isWhole()) addHearAgain(menu, *node->song());
}

void LibraryActions::fillUnheardMenu(QMenu& menu, QBSong& song) {
  const platform::Ref<QBSong> kept(&song);
  const bool isHeard = SongInWork::is(song);
  menu.addAction(tr("Go On Hearing"), this,
                 [this, kept] { follow(m_desk.hearAgain(*kept), toText(kept->unheard())); })
      ->setEnabled(canHearAgain(song));
  menu.addAction(tr("Take As Whole"), this, [this, kept] { attempt([&] { takeAsWhole(*kept); }); })
      ->setEnabled(!isHeard);
  menu.addSeparator();
}

/// By the settings that there are now.
void LibraryActions::addHearAgain(QMenu& menu, QBSong& song) {
  if (!song.recording()) return;
  const platform::Ref<QBSong> kept(&song);
  menu.addSeparator();
  menu.addAction(tr("Hear Again"), this,
                 [this, kept] { follow(m_desk.hearAgain(*kept), toText(recordingFileOf(*kept))); })
      ->setEnabled(canHearAnew(song));
}

void LibraryActions::fillAlbumMenu(QMenu& menu, const std::function<QBAlbum*()>& album) {
  const auto add = [&](QMenu& place, const QString& title, const auto& act) {
    place.addAction(title, this, [this, album, act] {
      const platform::Ref<QBAlbum> chosen = album();
      if (chosen) attempt([&] { act(*chosen); });
    });
  };
  add(menu, tr("Clone"), [](QBAlbum& each) { cloneAlbum(each); });
  add(menu, tr("Delete"), [](QBAlbum& each) { deleteAlbum(each); });
  menu.addSeparator();
  add(menu, tr("Import Into ..."), [this](QBAlbum& each) { chooseAndImport(&each); });
  QMenu& all = *menu.addMenu(tr("Export All As"));
  for (const FormatName& format : kFormats)
    add(all, nameOf(format), [this, format](QBAlbum& each) { exportAll(each, format.format); });
}

void LibraryActions::fillSongsMenu(QMenu& menu, const Songs& songs) {
  QMenu& all = *menu.addMenu(tr("Export All As"));
  for (const FormatName& format : kFormats)
    all.addAction(nameOf(format), this, [this, songs, format] {
      attempt([&] {
        exportInto([&](const std::string& folder) {
          return std::make_shared<ExportAlbumCommand>(songs, format.format, folder);
        });
      });
    });
}

void LibraryActions::fillTuningMenu(QMenu& menu, QBTuning& tuning) {
  const platform::Ref<QBTuning> kept(&tuning);
  menu.addAction(tr("Select As Active"), this,
                 [this, kept] { attempt([&] { selectTuning(*kept); }); });
  menu.addAction(tr("Edit Strings ..."), this, [this, kept] { editStrings(*kept); });
  menu.addAction(tr("Delete"), this, [this, kept] { attempt([&] { deleteTuning(*kept); }); });
  menu.addSeparator();
  fillTuningsMenu(menu);
}

void LibraryActions::fillInstrumentMenu(QMenu& menu, QBInstrument& instrument) {
  const platform::Ref<QBInstrument> kept(&instrument);
  menu.addAction(tr("Select As Active"), this,
                 [this, kept] { attempt([&] { selectInstrument(*kept); }); });
  menu.addAction(tr("Export Definition File ..."), this, [this, kept] { exportInstrument(*kept); });
  menu.addAction(tr("Delete"), this, [this, kept] { attempt([&] { deleteInstrument(*kept); }); });
  menu.addSeparator();
  fillInstrumentsMenu(menu);
}

void LibraryActions::addRename(QMenu& menu, const TreeNode& node) {
  menu.addAction(tr("Rename"), this, [this, &node] { emit renameWanted(&node); });
}

// ---- what they do

void LibraryActions::remove(TreeNode& node) {
  attempt([&] { node.remove(); });
}

void LibraryActions::chooseAndImport(QBAlbum* into) {
  const platform::Ref<QBAlbum> album = into;
  Preferences preferences;
  const QStringList files = QFileDialog::getOpenFileNames(
      m_window, tr("Import Recordings"), preferences.importFolder(), soundFileFilter());
  if (files.isEmpty()) return;
  preferences.setImportFolder(QFileInfo(files.first()).absolutePath());
  importFiles(files, album);
}

void LibraryActions::importFiles(const QStringList& files, QBAlbum* into) {
  if (files.isEmpty()) return;
  if (QBTabMgr::db().context().isReadOnly()) {
    attempt([] { Edit::requireWritable(QBTabMgr::db()); });
    return;
  }
  const platform::Ref<QBAlbum> album = into;
  if (QFileInfo(files.first()).isDir())
    importFolder(files.first(), album);
  else
    importFile(files.first(), album);
  if (files.size() == 1) return;
  // Each takes a moment to begin, and the user is not to wait for all of them.
  QTimer::singleShot(kNextTurn, this, [this, rest = files.mid(1), album] {
    if (!album || !album->isDeleted()) importFiles(rest, album);
  });
}

/// Its recordings become songs of an album of its name.
void LibraryActions::importFolder(const QString& folder, QBAlbum* into) {
  const QDir dir(folder);
  const QStringList names = dir.entryList(soundFilePatterns(), QDir::Files, QDir::LocaleAware);
  if (names.isEmpty()) {
    emit refused(tr("%1 has no sound files; choose another folder").arg(dir.dirName()));
    return;
  }
  platform::Ref<QBAlbum> album = into;
  if (!album) attempt([&] { album = newAlbum(dir.dirName().toStdString()); });
  if (!album) return;
  QStringList files;
  for (const QString& name : names) files.append(dir.filePath(name));
  importFiles(files, album);
}

void LibraryActions::importFile(const QString& file, QBAlbum* into) {
  const platform::Ref<QBSong> known = songHeardIn(QBTabMgr::db(), file.toStdString());
  const auto job = m_desk.importFile(file.toStdString(), into);
  follow(job, file);
  if (job && known)
    emit alreadyThere(known, [job] {
      if (job->isRunning()) job->cancelAndDrop();
    });
}

void LibraryActions::goOn(const ImportUnderWay& left) {
  follow(m_desk.goOn(left), toText(left.file));
}

/// The job is none when the import could not begin.
void LibraryActions::follow(const std::shared_ptr<QBCmdImportSong>& job, const QString& file) {
  if (!job) {
    emit importRefused(adviceFor(file));
    return;
  }
  // Showing the song is a step of its own: the last one of the import is long enough.
  job->onFinished([this, file, done = job.get()] {
    const platform::Ref<QBSong> song = done->newSong();
    QTimer::singleShot(kNextTurn, this, [this, file, song] { emit imported(file, song); });
  });
  job->onTrouble([this](const platform::UserText& text) { emit refused(translated(text)); });
  emit importStarted(file);
}

void LibraryActions::createAlbum() {
  attempt([this] { emit albumCreated(newAlbum(tr("New Album").toStdString())); });
}

void LibraryActions::exportSongFile(QBSong* song) {
  const platform::Ref<QBSong> kept = song;
  QStringList filters;
  for (const FormatName& format : kFormats) filters.append(filterOf(format));
  filters.append(tr("Sound of the whole song") + " (*.wav)");
  if (const auto loop = SongRenderer::loopOf(*song))
    filters.append(tr("Sound of the loop, chords %1 to %2").arg(loop->from).arg(loop->to) +
                   " (*.wav)");
  const QString pdf = tr("PDF document") + " (*" + kPdf + ')';
  filters.append(pdf);
  QString chosen = filters.first();
  const QString file = QFileDialog::getSaveFileName(
      m_window, tr("Export Song"), proposedPath(song->title()), filters.join(";;"), &chosen);
  if (file.isEmpty()) return;
  Preferences().setExportFolder(QFileInfo(file).absolutePath());
  if (file.endsWith(kPdf, Qt::CaseInsensitive) || (chosen == pdf && !formatNamedBy(file)))
    return exportPdf(*kept, file);
  const auto format = std::max<qsizetype>(0, filters.indexOf(chosen));
  exportAs(*kept, file, static_cast<std::size_t>(format));
}

void LibraryActions::exportPdf(QBSong& song, const QString& file) {
  const bool named = file.endsWith(kPdf, Qt::CaseInsensitive);
  const QString path = named ? file : file + kPdf;
  if (named || mayReplace(path)) emit pdfWanted(&song, path);
}

/// format: index into kFormats, or one beyond for sound, and two for that of the loop.
void LibraryActions::exportAs(QBSong& song, const QString& file, std::size_t format) {
  const bool asChosen = file.endsWith(endingOf(format), Qt::CaseInsensitive);
  const auto named = asChosen ? std::optional(format) : formatNamedBy(file);
  const QString path = named ? file : file + endingOf(format);
  // The dialog has asked for the name as it was typed only.
  if (!named && !mayReplace(path)) return;
  format = named.value_or(format);
  attempt([&] {
    if (format >= kFormats.size())
      renderSong(song, format > kFormats.size() ? RenderedPart::loop : RenderedPart::song, path);
    else
      exportSong(song, kFormats.at(format).format, path.toStdString());
  });
}

bool LibraryActions::mayReplace(const QString& file) {
  return !QFileInfo::exists(file) ||
         QMessageBox::question(m_window, tr("Export Song"),
                               tr("%1 is there already. Replace it?").arg(file)) ==
             QMessageBox::Yes;
}

void LibraryActions::renderSong(QBSong& song, RenderedPart part, const QString& file) {
  const auto tempo =
      Preferences().strictTempo() ? SongTime::Tempo::strict : SongTime::Tempo::asRecorded;
  run(std::make_shared<RenderSongCommand>(&song, part, file.toStdString(), newSynthesizer(),
                                          tempo));
}

void LibraryActions::run(const std::shared_ptr<QBCommand>& job) {
  QBSession::session().addJob(job);
  try {
    job->runInBackground();
  } catch (...) {
    QBSession::session().removeJob(*job);
    throw;
  }
}

void LibraryActions::exportAll(QBAlbum& album, SongFormat format) {
  exportInto([&](const std::string& folder) {
    return std::make_shared<ExportAlbumCommand>(album, format, folder);
  });
}

void LibraryActions::exportInto(const Exporter& exporter) {
  Preferences preferences;
  const QString folder = QFileDialog::getExistingDirectory(m_window, tr("Export All Songs Into"),
                                                           preferences.exportFolder());
  if (folder.isEmpty()) return;
  preferences.setExportFolder(folder);
  run(exporter(folder.toStdString()));
}

void LibraryActions::editStrings(QBTuning& tuning) {
  TuningDialog dialog(tuning, m_window);
  if (dialog.exec() != QDialog::Accepted) return;
  attempt([&] { editTuning(tuning, dialog.pitches()); });
}

void LibraryActions::chooseInstrument() {
  Preferences preferences;
  const QString file = QFileDialog::getOpenFileName(
      m_window, tr("Import Instrument"), preferences.importFolder(),
      tr("Instrument definitions (*.xml)") + ";;" + tr("All files (*)"));
  if (file.isEmpty()) return;
  preferences.setImportFolder(QFileInfo(file).absolutePath());
  attempt([&] { importInstrument(file.toStdString()); });
}

void LibraryActions::calibrateInstrument() {
  attempt([this] { CalibrationDialog(m_window).exec(); });
}

void LibraryActions::exportInstrument(QBInstrument& instrument) {
  const QString file = QFileDialog::getSaveFileName(m_window, tr("Export Instrument"),
                                                    proposedPath(instrument.name(), ".xml"),
                                                    tr("Instrument definitions (*.xml)"));
  if (file.isEmpty()) return;
  Preferences().setExportFolder(QFileInfo(file).absolutePath());
  attempt([&] { platform::writeAtomically(file.toStdString(), definitionOf(instrument)); });
}

}  // namespace korvel::ui
