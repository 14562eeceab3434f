// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/StoreCommands.h"

#include <stdexcept>

#include "cli/support/CliError.h"
#include "cli/support/Console.h"
#include "cli/support/SongChoice.h"
#include "export/SongJson.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "platform/sqlite/StoreFile.h"
#include "workflow/session/TuningForNow.h"

namespace korvel::cli {
namespace {

void printLine(std::string_view line) { Console::attached().printLine(line); }

/// Texts of a song need its chords, and are drawn for the tuning that it was made in.
template <class Text>
std::string textOf(const QBSong& song, const Text& text) {
  const TuningForNow chosen(song.tuning());
  try {
    return text();
  } catch (const std::out_of_range&) {
    throw CliError(fullTitle(song) + ": the song has no chords");
  }
}

}  // namespace

void listSongs() {
  for (const auto& album : QBTabMgr::db().albums()) {
    if (album->songs().empty()) printLine(album->name() + '/');
    for (const QBSong* song : album->songs()) printLine(fullTitle(*song));
  }
}

void showSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  const std::string text =
      song.hasTabulature() ? song.tabulature() : textOf(song, [&] { return song.toString(); });
  Console::attached().print(text);
}

void dumpSong(const std::string& name) { Console::attached().print(songAsJson(chooseSong(name))); }

void deleteSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  song.album()->deleteSong(&song);
  QBTabMgr::db().context().save();
}

void listTunings() {
  const QBTuning* active = QBTabMgr::db().selectedTuning();
  for (const auto& tuning : QBTabMgr::db().tunings())
    printLine((tuning == active ? "* " : "  ") + tuning->descr() + " (" + tuning->toString() + ")");
}

void checkStore() {
  platform::SqliteDatabase& store = QBTabMgr::db().context().store();
  const auto problems = platform::StoreFile::problems(store);
  for (const std::string& problem : problems) printLine(problem);
  if (!problems.empty())
    throw CliError(store.file() + ": the store is damaged; restore a backup of it");
  printLine(store.file() + ": ok");
}

void backupStore(const std::string& file) {
  if (platform::isThere(file))
    throw CliError(file + ": there is a file of that name already; choose another");
  platform::StoreFile::backup(QBTabMgr::db().context().store(), file);
}

}  // namespace korvel::cli
