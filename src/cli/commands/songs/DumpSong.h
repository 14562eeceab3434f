// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel::cli {

class Command;

/// `dump`: a song as JSON.
void addDumpSong(Command& tool);

}  // namespace korvel::cli
