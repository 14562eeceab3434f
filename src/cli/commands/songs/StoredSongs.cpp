// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/StoredSongs.h"

#include <stdexcept>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/SongChoice.h"
#include "export/SongJson.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "tab/text/SongDrawing.h"

namespace korvel::cli {
namespace {

/// Needs chords.
std::string textOf(QBSong& song) {
  try {
    return toString(song);
  } catch (const std::out_of_range&) {
    throw CliError(fullTitle(song) + ": the song has no chords");
  }
}

void listSongs() {
  for (const auto& album : QBTabMgr::db().albums()) {
    if (album->songs().empty()) Console::attached().printLine(album->name() + '/');
    for (const QBSong* song : album->songs()) Console::attached().printLine(fullTitle(*song));
  }
}

void showSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  Console::attached().printText(song.hasTabulature() ? song.tabulature() : textOf(song));
}

void dumpSong(const std::string& name) { Console::attached().print(songAsJson(chooseSong(name))); }

void deleteSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  song.album()->deleteSong(&song);
  QBTabMgr::db().context().save();
}

void addSongCommand(Command& tool, const char* name, const char* description,
                    void (*action)(const std::string&)) {
  Command& command = tool.command(name, description);
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song, action] { action(song); });
}

}  // namespace

void addList(Command& tool) { tool.command("list", "List albums and songs").does(listSongs); }

void addStoredSongs(Command& tool) {
  addSongCommand(tool, "show", "Print the tablature of a song", showSong);
  addSongCommand(tool, "dump", "Print a song as JSON", dumpSong);
  addSongCommand(tool, "delete", "Delete a song", deleteSong);
}

}  // namespace korvel::cli
