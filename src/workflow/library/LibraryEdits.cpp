// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/LibraryEdits.h"

#include <algorithm>
#include <stdexcept>

#include "analysis/instrument/Calibration.h"
#include "analysis/instrument/QBMusicXMLParser.h"
#include "export/xml/DefinitionFile.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/persistence/UndoManager.h"
#include "tab/text/SongDrawing.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"
#include "workflow/session/TuningForNow.h"

namespace korvel {
namespace {

QBTabMgr& db() { return QBTabMgr::db(); }

platform::UndoManager& undoManager() { return db().context().undoManager(); }

/// Whoever reads the line can rely on the edit.
void done(std::string_view line) {
  db().save();
  QBSession::session().addToLog(line);
  QBSession::session().refreshTree();
}

void requireName(const std::string& name, const char* what) {
  if (name.find_first_not_of(" \t\r\n") == std::string::npos)
    throw EditRefused(std::string(what) + " needs a name; type one");
}

void redraw(QBSong& song) {
  const TuningForNow chosen(song.tuning());
  if (!song.chords().empty()) buildTab(song);
}

bool isInstrument(const std::string& name) {
  return std::ranges::any_of(db().instruments(),
                             [&](const auto& each) { return each->name() == name; });
}

void leave(const QBAlbum& album) {
  QBSession& session = QBSession::session();
  const QBSong* active = session.activeSong();
  if (active && active->album() == &album) session.setActiveSong(nullptr);
}

}  // namespace

// ---- albums

QBAlbum* newAlbum(const std::string& name) {
  const platform::UndoGroup group(undoManager(), "New Album");
  requireName(name, "An album");
  QBAlbum* album = db().createAlbum(QBNameMgr(nullptr, name).newAlbumName(), false);
  done("Album created.");
  return album;
}

void renameAlbum(QBAlbum& album, const std::string& name) {
  const platform::UndoGroup group(undoManager(), "Rename Album");
  if (name == album.name()) return;
  requireName(name, "An album");
  if (db().findAlbumByName(name))
    throw EditRefused(name + ": there is an album of that name already; choose another name");
  album.setName(name);
  done("Album renamed.");
}

QBAlbum* cloneAlbum(QBAlbum& album) {
  const platform::UndoGroup group(undoManager(), "Clone Album");
  const std::string name = QBNameMgr(nullptr, album.name()).newAlbumName();
  QBAlbum* copy = album.clone();
  copy->setName(name);
  done("Album was successfully cloned.");
  return copy;
}

void deleteAlbum(QBAlbum& album) {
  const platform::UndoGroup group(undoManager(), "Delete Album");
  for (const QBSong* song : album.songs()) SongInWork::requireDeletable(*song);
  leave(album);
  db().deleteAlbum(&album);
  done("Album was successfully deleted.");
}

// ---- songs

void renameSong(QBSong& song, const std::string& title) {
  const platform::UndoGroup group(undoManager(), "Rename Song");
  if (title == song.title()) return;
  requireName(title, "A song");
  if (song.requireAlbum().findSongByName(title))
    throw EditRefused(title + ": the album has a song of that title already; choose another title");
  song.setTitle(title);
  redraw(song);
  done("Song renamed.");
}

void moveSong(QBSong& song, QBAlbum& album) {
  const platform::UndoGroup group(undoManager(), "Move Song");
  if (song.album() == &album) return;
  const std::string title = QBNameMgr(&album, song.title()).newName();
  song.setAlbum(&album);
  if (title != song.title()) {
    song.setTitle(title);
    redraw(song);
  }
  done("Song moved.");
}

// ---- instruments

void selectInstrument(QBInstrument& instrument) {
  const platform::UndoGroup group(undoManager(), "Select Instrument");
  db().deselectAllInstruments();
  instrument.setActive(true);
  done("Instrument selected.");
}

QBInstrument* importInstrument(const std::string& file) {
  const platform::UndoGroup group(undoManager(), "Import Instrument");
  const platform::Ref<QBInstrument> before = db().selectedInstrument();
  const std::size_t count = db().instruments().size();
  db().deselectAllInstruments();
  QBMusicXMLParser(file).parse();
  if (db().instruments().size() == count) {
    if (before) before->setActive(true);
    throw EditRefused(file + ": is no instrument definition file; nothing was imported");
  }
  db().computeOffsets();
  done("Instrument imported.");
  return db().selectedInstrument();
}

QBInstrument* addInstrument(const std::string& name, const Calibration& measured) {
  const platform::UndoGroup group(undoManager(), "Calibrate Instrument");
  requireName(name, "An instrument");
  if (isInstrument(name))
    throw EditRefused(name + ": there is an instrument of that name already; choose another name");
  const TuningForNow chosen(measured.tuning());
  QBInstrument& instrument =
      measured.createInstrument(name, Calibration::kDetailLevel, Calibration::kSmallestShare);
  db().deselectAllInstruments();
  instrument.setActive(true);
  done("Instrument calibrated.");
  return &instrument;
}

std::string definitionOf(QBInstrument& instrument) {
  try {
    return definitionText(instrument);
  } catch (const std::invalid_argument&) {
    throw EditRefused(instrument.name() +
                      ": a definition file cannot hold that name; rename the instrument without "
                      "apostrophes and \"<\"");
  }
}

void renameInstrument(QBInstrument& instrument, const std::string& name) {
  const platform::UndoGroup group(undoManager(), "Rename Instrument");
  if (name == instrument.name()) return;
  requireName(name, "An instrument");
  instrument.setName(name);
  done("Instrument renamed.");
}

void deleteInstrument(QBInstrument& instrument) {
  const platform::UndoGroup group(undoManager(), "Delete Instrument");
  const auto& all = db().instruments();
  if (all.size() < 2)
    throw EditRefused(instrument.name() + ": is the only instrument; import another one first");
  const bool selected = instrument.active();
  const auto place = std::ranges::find(all, &instrument, &platform::Ref<QBInstrument>::get);
  db().deleteInstrumentAtIndex(static_cast<std::size_t>(place - all.begin()));
  if (selected) db().findInstrumentByIndex(0)->setActive(true);
  done("Instrument was successfully deleted.");
}

// ---- settings

void setWorkDirectory(const std::string& folder) {
  platform::makeFolders(folder);
  db().selectedSettings()->setWorkDir(folder.ends_with('/') ? folder : folder + '/');
  done("Working directory chosen.");
}

}  // namespace korvel
