// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/ImportDesk.h"

#include <filesystem>

#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/recorded/ConcertA.h"
#include "model/recorded/SongRecording.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/persistence/UndoManager.h"
#include "platform/text/UserError.h"
#include "platform/text/Utf8.h"
#include "rhythm/stored/HeardBytes.h"
#include "tab/text/SongDrawing.h"
#include "workflow/hearing/NewSong.h"
#include "workflow/hearing/QBCmdImportSong.h"
#include "workflow/hearing/RecordingTags.h"
#include "workflow/hearing/SoundCheck.h"
#include "workflow/hearing/WholeSong.h"
#include "workflow/library/AlbumNode.h"
#include "workflow/library/LibraryTree.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/recordings/RecordingSound.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

void requireInstrument(const QBTabMgr& db) {
  if (!db.selectedInstrument())
    throw platform::WordedAs<std::runtime_error>(platform::phrase(
        "Message", "no instrument is selected that could confirm tones; select one"));
}

/// The album of that artist, which is made when it is missing.
QBAlbum* albumOf(QBTabMgr& db, const std::string& artist) {
  QBAlbum* known = db.findAlbumByName(artist);
  return known ? known : db.createAlbum(artist, false);
}

/// The song that an import fills, with the album made for it unless there is one. Its tags name it,
/// or else its file.
QBSong* newSong(QBTabMgr& db, const std::string& file, QBAlbum* into) {
  // A line break in a title would shift the rows of the tablature.
  const std::string stem = platform::printable(std::filesystem::path(file).stem().string());
  const RecordingTags tags(file);
  const std::string name = tags.title.value_or(stem);
  if (!into && tags.artist) into = albumOf(db, *tags.artist);
  QBAlbum* album = into ? into : db.createAlbum(QBNameMgr(nullptr, name).newAlbumName(db), false);
  QBSong* song = album->createSong(into ? QBNameMgr(into, name).newName() : album->name());
  song->setTuning(db.selectedTuning());
  return song;
}

/// One that hears a song again goes on with that at the next start.
ImportUnderWay stateOf(const QBCmdImportSong& import) {
  const QBSong* song = import.shownSong();
  return {import.file(), song->objectId(), song->title(), import.replaces()};
}

std::vector<QBCmdImportSong*> runningCommands() {
  const QBSession& session = QBSession::session();
  std::vector<QBCmdImportSong*> imports;
  for (std::size_t i = 0; i < session.numberOfCurrentJobs(); ++i) {
    auto* import = dynamic_cast<QBCmdImportSong*>(&session.findJobByIndex(i));
    if (import && import->isRunning()) imports.push_back(import);
  }
  return imports;
}

/// Whether all went well.
bool ended(QBSession& session, QBCommand& job) {
  try {
    job.endNow();
    return true;
  } catch (const std::exception& exception) {
    session.handleException("endJob", exception);
    return false;
  }
}

/// An id may have been given again, to a song of another title.
QBSong* storedSong(const ImportUnderWay& import) {
  for (const auto& album : QBTabMgr::db().albums())
    for (QBSong* song : album->songs())
      if (song->objectId() == import.song && song->title() == import.title) return song;
  return nullptr;
}

}  // namespace

void ImportDesk::setDetection(const Detection& detection, const HearingSettings& settings) {
  m_detection = &detection;
  m_settings = settings;
}

void ImportDesk::setKeepsSounds(bool keeps) {
  m_keepsSounds = keeps;
  for (QBCmdImportSong* import : runningCommands()) import->setKeepsSound(keeps);
}

std::shared_ptr<QBCmdImportSong> ImportDesk::importFile(const std::string& file, QBAlbum* into) {
  try {
    return start(file, into);
  } catch (const std::exception& exception) {
    m_tree.session().handleException("importSong", exception);
    return nullptr;
  }
}

std::shared_ptr<QBCmdImportSong> ImportDesk::hearAgain(QBSong& song, const Otherwise& otherwise) {
  try {
    return startAgain(song, otherwise);
  } catch (const std::exception& exception) {
    m_tree.session().handleException("importSong", exception);
    return nullptr;
  }
}

std::shared_ptr<QBCmdImportSong> ImportDesk::goOn(const ImportUnderWay& left) {
  QBSong* song = storedSong(left);
  return song && (!song->isWhole() || canHearAnew(*song)) ? hearAgain(*song) : nullptr;
}

std::shared_ptr<QBCmdImportSong> ImportDesk::startAgain(QBSong& song, const Otherwise& otherwise) {
  QBTabMgr& db = m_tree.db();
  Edit::requireWritable(db);
  if (SongInWork::is(song))
    throw EditRefused(platform::phrase("Message", "%1: is being heard already"), song.title());
  if (song.isWhole() && song.recording()) requireRecordingFile(*song.recording(), Proof::atOnce);
  const std::string file = recordingFileOf(song);
  requireSound(file);
  if (m_detection->needsInstrument) requireInstrument(db);
  db.context().checkAhead();
  const auto made =
      command(file,
              db.createSong(song.title(), otherwise.tuning ? otherwise.tuning : song.tuning(),
                            db.selectedInstrument(), nullptr),
              song.album());
  made->setReplaced(&song);
  made->setDetection(*m_detection, settingsFor(song, otherwise));
  run(made);
  return made;
}

/// A song that is not whole has no voices yet, and gets those that imports do.
HearingSettings ImportDesk::settingsFor(const QBSong& song, const Otherwise& otherwise) const {
  HearingSettings settings = m_settings;
  const SongRecording* recording = song.recording();
  if (const auto read = recording ? rhythm::storedRhythm(recording->rhythm()) : std::nullopt)
    settings.rhythm = read->wishes;
  if (recording) settings.players = recording->isBand() ? Players::band : Players::guitar;
  settings.concertA = otherwise.farA ? hertzOfA(*otherwise.farA) : recordedAOf(song);
  if (recording || song.hasCapo()) settings.fingering.capo = capoOf(song);
  if (otherwise.players) settings.players = *otherwise.players;
  if (song.isWhole()) settings.voices = otherwise.voices;
  if (settings.players == Players::band) settings.grid = Grid::beats;
  return settings;
}

std::shared_ptr<QBCmdImportSong> ImportDesk::start(const std::string& file, QBAlbum* into) {
  QBTabMgr& db = m_tree.db();
  Edit::requireWritable(db);
  requireSound(file);
  if (m_detection->needsInstrument) requireInstrument(db);
  db.context().checkAhead();
  const auto undo = std::make_shared<platform::UndoGroup>(
      db.context().undoManager(), platform::phrase("UndoAction", "Import WAV File"));
  QBSong* song = newSong(db, file, into);
  m_tree.session().refreshTree();
  m_tree.refresh();
  const auto made = command(file, song, song->album());
  made->setOwnsAlbum(!into && song->album()->songs().size() == 1);
  made->joinUndo(undo);
  run(made);
  return made;
}

std::shared_ptr<QBCmdImportSong> ImportDesk::command(const std::string& file, QBSong* song,
                                                     QBAlbum* album) {
  auto made = std::make_shared<QBCmdImportSong>(m_tree.find(album), file, song);
  made->m_name = ": " + std::filesystem::path(file).filename().string();
  HearingSettings settings = m_settings;
  settings.tunings = pitchesOfKnownTunings();
  made->setDetection(*m_detection, settings);
  made->setKeepsSound(m_keepsSounds);
  made->setSaving(true);
  return made;
}

void ImportDesk::run(const std::shared_ptr<QBCmdImportSong>& command) {
  m_tree.session().addJob(command);
  try {
    command->runInBackground();
  } catch (...) {
    command->cancelAndDrop();
    throw;
  }
}

void ImportDesk::stopAll() {
  for (QBCmdImportSong* import : runningCommands()) import->stopAndKeep();
}

std::vector<ImportUnderWay> ImportDesk::leaveAll() {
  std::vector<ImportUnderWay> left;
  for (QBCmdImportSong* import : runningCommands()) {
    left.push_back(stateOf(*import));
    left.back().goesOn = true;
    try {
      import->leave();
    } catch (const std::exception& exception) {
      QBSession::session().handleException("endJob", exception);
    }
  }
  return left;
}

std::vector<ImportUnderWay> ImportDesk::endAll() {
  QBSession& session = QBSession::session();
  std::vector<ImportUnderWay> interrupted;
  // The later first: it may import into the album of one before.
  for (std::size_t i = session.numberOfCurrentJobs(); i-- > 0;) {
    QBCommand& job = session.findJobByIndex(i);
    if (!job.isRunning()) continue;
    const bool whole = ended(session, job);
    const auto* import = dynamic_cast<QBCmdImportSong*>(&job);
    if (import && (!whole || import->isCutShort())) interrupted.push_back(stateOf(*import));
  }
  return interrupted;
}

std::vector<ImportUnderWay> ImportDesk::running() {
  std::vector<ImportUnderWay> imports;
  for (const QBCmdImportSong* import : runningCommands()) imports.push_back(stateOf(*import));
  return imports;
}

QBSong* ImportDesk::mend(const ImportUnderWay& interrupted) {
  const platform::Ref<QBSong> song = storedSong(interrupted);
  if (!song || song->hasTabulature()) return song;
  QBTabMgr& db = QBTabMgr::of(*song);
  if (db.context().isReadOnly()) return song;
  if (hasTones(*song)) {
    buildTab(*song);
  } else {
    const platform::Ref<QBAlbum> album = song->album();
    album->deleteSong(song);
    if (album->songs().empty() && album->name() == interrupted.title) db.deleteAlbum(album);
  }
  db.save();
  return song->isDeleted() ? nullptr : song.get();
}

}  // namespace korvel
