// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/LibraryEdits.h"

#include <algorithm>
#include <stdexcept>

#include "analysis/instrument/Calibration.h"
#include "analysis/instrument/QBMusicXMLParser.h"
#include "export/xml/DefinitionFile.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "platform/files/Files.h"
#include "platform/sqlite/StoreError.h"
#include "workflow/arranging/DerivedSong.h"
#include "workflow/library/DefinitionCheck.h"
#include "workflow/library/NameRules.h"
#include "workflow/library/QBNameMgr.h"
#include "workflow/session/Edit.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"
#include "workflow/session/SongInWork.h"

namespace korvel {
namespace {

using platform::phrase;

constexpr platform::Phrase kAlbumNeedsName = phrase("Message", "An album needs a name; type one");

bool isInstrument(const QBTabMgr& db, const std::string& name) {
  return std::ranges::any_of(db.instruments(),
                             [&](const auto& each) { return each->name() == name; });
}

void requireInstrumentName(const QBTabMgr& db, const std::string& name) {
  requireName(name, phrase("Message", "An instrument needs a name; type one"));
  if (isInstrument(db, name))
    throw EditRefused(
        phrase("Message", "%1: there is an instrument of that name already; choose another name"),
        name);
}

void makeSelected(QBTabMgr& db, QBInstrument& instrument) {
  db.deselectAllInstruments();
  instrument.setActive(true);
}

/// Nothing confirms or refutes the tones of a string without overtones.
void warnOfMissing(QBSession& session, QBInstrument& instrument) {
  std::string missing;
  for (int string = kStrings - 1; string >= 0; --string)
    if (instrument.findSpectrumByString(string)->overtones().empty())
      missing += (missing.empty() ? "" : ", ") + std::to_string(kStrings - string);
  if (!missing.empty())
    session.addToLog({phrase("Log",
                             "The file has no overtones of string %1; tones there count "
                             "unconfirmed."),
                      missing});
}

void leave(QBSession& session, const QBAlbum& album) {
  const QBSong* active = session.activeSong();
  if (active && active->album() == &album) session.setActiveSong(nullptr);
}

}  // namespace

// ---- albums

QBAlbum* newAlbum(const std::string& name) {
  Edit edit(phrase("UndoAction", "New Album"));
  requireName(name, kAlbumNeedsName);
  QBAlbum* album = edit.db().createAlbum(QBNameMgr(nullptr, name).newAlbumName(edit.db()), false);
  edit.done(phrase("Log", "Album created."));
  return album;
}

void renameAlbum(QBAlbum& album, const std::string& name) {
  Edit edit(phrase("UndoAction", "Rename Album"));
  if (name == album.name()) return;
  requireName(name, kAlbumNeedsName);
  if (edit.db().findAlbumByName(name))
    throw EditRefused(
        phrase("Message", "%1: there is an album of that name already; choose another name"), name);
  album.setName(name);
  edit.done(phrase("Log", "Album renamed."));
}

QBAlbum* cloneAlbum(QBAlbum& album) {
  Edit edit(phrase("UndoAction", "Clone Album"));
  const std::string name = QBNameMgr(nullptr, album.name()).newAlbumName(edit.db());
  QBAlbum* copy = album.clone();
  copy->setName(name);
  const auto songs = album.songs().snapshot();
  for (std::size_t i = 0; i < songs.size(); ++i) keepTimes(*songs[i], *copy->songs().at(i));
  edit.done(phrase("Log", "Album was successfully cloned."));
  return copy;
}

void deleteAlbum(QBAlbum& album) {
  Edit edit(phrase("UndoAction", "Delete Album"));
  for (const QBSong* song : album.songs()) SongInWork::requireDeletable(*song);
  leave(edit.session(), album);
  edit.db().deleteAlbum(&album);
  edit.done(phrase("Log", "Album was successfully deleted."));
}

// ---- songs

void renameSong(QBSong& song, const std::string& title) {
  Edit edit(song, phrase("UndoAction", "Rename Song"));
  if (title == song.title()) return;
  requireName(title, phrase("Message", "A song needs a name; type one"));
  if (song.requireAlbum().findSongByName(title))
    throw EditRefused(
        phrase("Message", "%1: the album has a song of that title already; choose another title"),
        title);
  song.setTitle(title);
  edit.redraw();
  edit.done(phrase("Log", "Song renamed."));
}

void moveSong(QBSong& song, QBAlbum& album) {
  Edit edit(song, phrase("UndoAction", "Move Song"));
  if (song.album() == &album) return;
  const std::string title = QBNameMgr(&album, song.title()).newName();
  song.setAlbum(&album);
  if (title != song.title()) {
    song.setTitle(title);
    edit.redraw();
  }
  edit.done(phrase("Log", "Song moved."));
}

void moveSong(QBSong& song, const std::string& album) {
  Edit edit(phrase("UndoAction", "Move Song"));
  requireName(album, kAlbumNeedsName);
  QBAlbum* known = edit.db().findAlbumByName(album);
  moveSong(song, known ? *known : *edit.db().createAlbum(album, false));
  edit.save();
}

void deleteSong(QBSong& song) {
  Edit edit(song, phrase("UndoAction", "Delete"));
  takeOutOfAlbum(song);
  edit.done(kSongDeleted);
  if (edit.session().activeSong() == &song) edit.session().setActiveSong(nullptr);
}

void takeOutOfAlbum(QBSong& song) {
  SongInWork::requireDeletable(song);
  song.requireAlbum().deleteSong(&song);
}

// ---- instruments

void selectInstrument(QBInstrument& instrument) {
  Edit edit(phrase("UndoAction", "Select Instrument"));
  makeSelected(edit.db(), instrument);
  edit.done(phrase("Log", "Instrument selected."));
}

QBInstrument* importInstrument(const std::string& file) {
  requireWholeDefinition(file);
  Edit edit(phrase("UndoAction", "Import Instrument"));
  QBTabMgr& db = edit.db();
  db.deselectAllInstruments();
  QBMusicXMLParser(db, file).parse();
  QBInstrument* instrument = db.selectedInstrument();
  edit.done(phrase("Log", "Instrument imported."));
  warnOfMissing(edit.session(), *instrument);
  return instrument;
}

QBInstrument* addInstrument(const std::string& name, const Calibration& measured) {
  Edit edit(phrase("UndoAction", "Calibrate Instrument"));
  requireInstrumentName(edit.db(), name);
  QBInstrument& instrument = measured.createInstrument(edit.db(), name, Calibration::kDetailLevel,
                                                       Calibration::kSmallestShare);
  makeSelected(edit.db(), instrument);
  edit.done(phrase("Log", "Instrument calibrated."));
  return &instrument;
}

std::string definitionOf(QBInstrument& instrument) {
  try {
    return definitionText(instrument);
  } catch (const std::invalid_argument&) {
    throw EditRefused(phrase("Message",
                             "%1: a definition file cannot hold that name; rename the instrument "
                             "without apostrophes and \"<\""),
                      instrument.name());
  }
}

void renameInstrument(QBInstrument& instrument, const std::string& name) {
  Edit edit(phrase("UndoAction", "Rename Instrument"));
  if (name == instrument.name()) return;
  requireInstrumentName(edit.db(), name);
  instrument.setName(name);
  edit.done(phrase("Log", "Instrument renamed."));
}

void deleteInstrument(QBInstrument& instrument) {
  Edit edit(phrase("UndoAction", "Delete Instrument"));
  QBTabMgr& db = edit.db();
  const auto& all = db.instruments();
  if (all.size() < 2)
    throw EditRefused(phrase("Message", "%1: is the only instrument; import another one first"),
                      instrument.name());
  const bool selected = instrument.active();
  const auto place = std::ranges::find(all, &instrument, &platform::Ref<QBInstrument>::get);
  db.deleteInstrumentAtIndex(static_cast<std::size_t>(place - all.begin()));
  if (selected) db.findInstrumentByIndex(0)->setActive(true);
  edit.done(phrase("Log", "Instrument was successfully deleted."));
}

// ---- settings

/// No Edit: settings are no part of what a user takes back, so that an undo after it still finds
/// the edit of a song before it. What could not be saved is put back by hand.
void setWorkDirectory(const std::string& folder) {
  Edit::requireWritable(QBTabMgr::db());
  platform::makeFolders(folder);
  QBTabMgr& db = QBTabMgr::db();
  const std::string before = db.selectedSettings()->workDir();
  db.selectedSettings()->setWorkDir(folder.ends_with('/') ? folder : folder + '/');
  try {
    db.save();
  } catch (const platform::StoreError&) {
    db.selectedSettings()->setWorkDir(before);
    throw;
  }
  QBSession::session().addToLog(phrase("Log", "Working directory chosen."));
  QBSession::session().refreshTree();
}

}  // namespace korvel
