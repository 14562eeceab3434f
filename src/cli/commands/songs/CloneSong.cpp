// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/CloneSong.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "workflow/library/SongCopies.h"

namespace korvel::cli {
namespace {

void cloneStored(const std::string& name) {
  QBSong& song = chooseSong(name);
  requireChords(song);
  printTitle(cloneSong(song));
}

}  // namespace

void addCloneSong(Command& tool) {
  Command& command = tool.command("clone", "Copy a song");
  auto& song = command.own<std::string>();
  needStoredSong(command, song);
  command.does([&song] { cloneStored(song); });
}

}  // namespace korvel::cli
