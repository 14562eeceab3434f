// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `delete`: a song is gone, without a word.
void addDeleteSong(Command& tool);

}  // namespace korvel::cli
