// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/RenameSong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/Unlogged.h"
#include "cli/support/choices/SongChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

struct RenameSongOptions {
  std::string song;
  std::string title;
};

void renameStored(const RenameSongOptions& options) {
  QBSong& song = chooseSong(options.song);
  const Unlogged quiet;
  renameSong(song, options.title);
  printTitle(song);
}

}  // namespace

void addRenameSong(Command& tool) {
  Command& command = tool.command("rename", "Give a song another title");
  auto& options = command.own<RenameSongOptions>();
  needStoredSong(command, options.song);
  command.option("TITLE", options.title, "").required().shownAs("");
  command.does([&options] { renameStored(options); });
}

}  // namespace korvel::cli
