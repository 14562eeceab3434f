// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/DeleteSong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/Unlogged.h"
#include "cli/support/choices/SongChoice.h"
#include "model/store/QBTabMgr.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/recordings/KeptSounds.h"

namespace korvel::cli {
namespace {

void deleteStored(const std::string& name) {
  QBSong& song = chooseSong(name);
  const Unlogged quiet;
  deleteSong(song);
  sweepKeptSounds(QBTabMgr::db());
}

}  // namespace

void addDeleteSong(Command& tool) {
  Command& command = tool.command("delete", "Delete a song");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { deleteStored(song); });
}

}  // namespace korvel::cli
