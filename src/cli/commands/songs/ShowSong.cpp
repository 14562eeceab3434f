// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/ShowSong.h"

#include <stdexcept>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/SongChoice.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBSong.h"
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

void showSong(const std::string& name) {
  QBSong& song = chooseSong(name);
  // A text from before the capo was known, or names told of it, is outdated.
  const bool isKept = song.hasTabulature() && capoOf(song) == 0;
  Console::attached().printText(isKept ? song.tabulature() : textOf(song));
}

}  // namespace

void addShowSong(Command& tool) {
  Command& command = tool.command("show", "Print the tablature of a song");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { showSong(song); });
}

}  // namespace korvel::cli
