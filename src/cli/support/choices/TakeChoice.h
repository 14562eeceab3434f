// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "workflow/takes/Takes.h"

namespace korvel::cli {

class Command;

/// Has the command take the number of a take, N, which must be given.
void needTake(Command& command, int& number);
/// number: as they are listed, from 1. Throws CliError when there is no such take.
Take chooseTake(int number);
/// ALBUM/TITLE of a song that is in an album.
std::string pathOf(const QBSong& song);

}  // namespace korvel::cli
