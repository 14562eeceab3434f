// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "workflow/arranging/commands/SongCommand.h"

namespace korvel {

// What takes voices out of a song. Each is the rows of a submenu, from top to bottom.

/// Only the voices that they are named after stay.
std::span<const SongCommand> extractedVoices();
/// Only so many of the loudest tones of each chord stay.
std::span<const SongCommand> loudestVoices();
/// All stays but the voices that they are named after.
std::span<const SongCommand> removedVoices();

}  // namespace korvel
