// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `show`: the tablature of a song.
void addShowSong(Command& tool);

}  // namespace korvel::cli
