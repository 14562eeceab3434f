// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "workflow/arranging/commands/SongCommand.h"

namespace korvel {

// What lays a song into bars.

/// A row for each metre of the submenu, from top to bottom.
std::span<const SongCommand> metreCommands();

}  // namespace korvel
