// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "workflow/arranging/commands/SongCommand.h"

namespace korvel {

// What a user can have done to a song for the hands that play it. Each is the rows of a submenu,
// from top to bottom.

/// Those that most songs are given, and three of them in turn.
std::span<const SongCommand> standardCommands();
/// Lines for a pick.
std::span<const SongCommand> plectrumCommands();

}  // namespace korvel
