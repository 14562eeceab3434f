// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/TakeChoice.h"

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"

namespace korvel::cli {

void needTake(Command& command, int& number) {
  command.option("N", number, "Its number in the list").required().shownAs("");
}

Take chooseTake(int number) {
  const auto takes = takesLeft();
  if (number < 1 || number > static_cast<int>(takes.size()))
    throw CliError("there is no take " + std::to_string(number) +
                   "; \"korvel-cli takes\" lists those that there are");
  return takes[static_cast<std::size_t>(number - 1)];
}

std::string pathOf(const QBSong& song) { return song.album()->name() + '/' + song.title(); }

}  // namespace korvel::cli
