// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/DumpSong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/SongChoice.h"
#include "export/SongJson.h"

namespace korvel::cli {

void addDumpSong(Command& tool) {
  Command& command = tool.command("dump", "Print a song as JSON");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { Console::attached().print(songAsJson(chooseSong(song))); });
}

}  // namespace korvel::cli
