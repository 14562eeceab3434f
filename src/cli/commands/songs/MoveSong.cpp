// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/MoveSong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/Unlogged.h"
#include "cli/support/choices/SongChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

struct MoveSongOptions {
  std::string song;
  std::string album;
};

void moveStored(const MoveSongOptions& options) {
  QBSong& song = chooseSong(options.song);
  const Unlogged quiet;
  moveSong(song, options.album);
  printTitle(song);
}

}  // namespace

void addMoveSong(Command& tool) {
  Command& command = tool.command("move", "Move a song to an album, which is made when missing");
  auto& options = command.own<MoveSongOptions>();
  needStoredSong(command, options.song);
  command.option("ALBUM", options.album, "").required().shownAs("");
  command.does([&options] { moveStored(options); });
}

}  // namespace korvel::cli
