// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "workflow/arranging/commands/SongCommand.h"

namespace korvel {

// What changes the harmony of a song. Each is the rows of a submenu, from top to bottom.

/// Plainer chords: without what their names do not have, or without options of these.
std::span<const SongCommand> removedOptions();
/// The whole song higher, by one half tone to eleven.
std::span<const SongCommand> transposedUp();
/// The whole song lower, by one half tone to eleven.
std::span<const SongCommand> transposedDown();

}  // namespace korvel
