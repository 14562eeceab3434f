// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/ListSongs.h"

#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"

namespace korvel::cli {
namespace {

void listSongs() {
  for (const auto& album : QBTabMgr::db().albums()) {
    if (album->songs().empty()) Console::attached().printLine(album->name() + '/');
    for (const QBSong* song : album->songs()) Console::attached().printLine(fullTitle(*song));
  }
}

}  // namespace

void addListSongs(Command& tool) { tool.command("list", "List albums and songs").does(listSongs); }

}  // namespace korvel::cli
