// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/LibraryActions.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QTimer>
#include <chrono>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "ui/desktop/Preferences.h"
#include "ui/desktop/SoundFileNames.h"
#include "ui/desktop/Text.h"
#include "ui/desktop/Translated.h"
#include "ui/dialogs/CalibrationDialog.h"
#include "ui/dialogs/TuningDialog.h"
#include "ui/dialogs/hearing/StepsDialog.h"
#include "ui/library/PieceImports.h"
#include "workflow/exchange/PieceTuning.h"
#include "workflow/hearing/KnownRecordings.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/recordings/FileContent.h"
#include "workflow/recordings/PlacedRecording.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/Edit.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/TreeNode.h"
#include "workflow/sheets/ChordSong.h"

namespace korvel::ui {
namespace {

using namespace std::chrono_literals;

/// After the events that wait already; 0 would come before them.
constexpr auto kNextTurn = 1ms;
constexpr auto kNextLook = 100ms;

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
    : QObject(window),
      m_desk(desk),
      m_guides(guides),
      m_window(window),
      m_pieces(new PieceImports(window)) {
  connect(m_pieces, &PieceImports::started, this, &LibraryActions::pieceStarted);
  connect(m_pieces, &PieceImports::imported, this, &LibraryActions::imported);
  connect(m_pieces, &PieceImports::refused, this, &LibraryActions::refused);
}

void LibraryActions::attempt(const std::function<void()>& edit) {
  try {
    edit();
  } catch (const platform::UserError& problem) {
    emit refused(translated(problem));
  }
}

void LibraryActions::remove(TreeNode& node) {
  attempt([&] { node.remove(); });
}

void LibraryActions::chooseAndImport(QBAlbum* into) {
  const platform::Ref<QBAlbum> album = into;
  Preferences preferences;
  const QStringList files = QFileDialog::getOpenFileNames(
      m_window, tr("Import Recordings"), preferences.importFolder(), importFilter());
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

/// What is in it becomes songs of an album of its name.
void LibraryActions::importFolder(const QString& folder, QBAlbum* into) {
  const QDir dir(folder);
  const QStringList names =
      dir.entryList(soundFilePatterns() + pieceFilePatterns(false), QDir::Files, QDir::LocaleAware);
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
  if (isChordProFile(file.toStdString())) return importChords(file, into);
  if (PieceImports::takes(file)) return m_pieces->begin(file, into);
  const auto job = m_desk.importFile(file.toStdString(), into);
  follow(job, file);
  if (job) lookForKnown(job, file);
}

void LibraryActions::importChords(const QString& file, QBAlbum* into) {
  const std::string path = file.toStdString();
  ChordSongChoices choices;
  if (into) choices.album = into->name();
  attempt([&] {
    QBSong& song = songOfChordPro(QBTabMgr::db(), platform::readWholeFile(path), path, choices);
    emit pieceStarted(file);
    emit imported(file, &song);
  });
}

/// A long file is read by another thread first.
void LibraryActions::lookForKnown(const std::shared_ptr<QBCmdImportSong>& job,
                                  const QString& file) {
  const std::string path = file.toStdString();
  if (!job->isRunning() || !mayBeHeardIn(QBTabMgr::db(), path)) return;
  if (!isContentAtHand(path)) {
    readAhead(path);
    QTimer::singleShot(kNextLook, this, [this, job, file] { lookForKnown(job, file); });
    return;
  }
  const platform::Ref<QBSong> known = songHeardIn(QBTabMgr::db(), path);
  if (!known || known == job->newSong()) return;
  emit alreadyThere(known, [this, job, known, file] {
    if (job->isRunning()) job->cancelAndDrop();
    if (!known->isDeleted()) giveRecording(*known, file);
  });
}

/// A song whose recording was moved has it again.
void LibraryActions::giveRecording(QBSong& song, const QString& file) {
  const SongRecording* recording = song.recording();
  if (!recording || isRecording(*recording, recording->path(), Proof::atOnce)) return;
  attempt([&] {
    const std::string path = file.toStdString();
    if (workThrough(readingPlaced(song, path), tr("Reading the recording ..."), m_window))
      placeRecording(song, path);
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
    QTimer::singleShot(kNextTurn, this, [this, file, song, tuning = done->otherTuning()] {
      emit imported(file, song);
      if (tuning && !song->isDeleted()) tellTuning(*song, *tuning, file);
    });
  });
  job->onTrouble([this](const platform::UserText& text) { emit refused(translated(text)); });
  emit importStarted(file);
}

void LibraryActions::tellTuning(QBSong& song, const FoundTuning& found, const QString& file) {
  const auto hear = [this, kept = platform::Ref<QBSong>(&song), found, file] {
    if (kept->isDeleted()) return;
    attempt([&] {
      QBTuning* tuning = tuningFor(QBTabMgr::db(), found.open);
      follow(m_desk.hearAgain(*kept, {.tuning = tuning, .farA = found.farA}), file);
    });
  };
  emit tuningFound(&song, toText(nameOfTuning(found)), hear);
}

void LibraryActions::createAlbum() {
  attempt([this] { emit albumCreated(newAlbum(tr("New Album").toStdString())); });
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

}  // namespace korvel::ui
