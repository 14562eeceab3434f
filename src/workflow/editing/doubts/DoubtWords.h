// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "music/Neck.h"
#include "platform/text/UserText.h"
#include "workflow/editing/doubts/DoubtList.h"

namespace korvel {

// Doubts in the words of users.

/// "A string, fret 3"; strings of the same note are told apart by their number, 1 the highest.
platform::UserText placeOnNeck(const OpenPitches& open, int string, int fret);

/// What may be wrong, such as "A string, fret 3: perhaps an overtone of C3".
platform::UserText reasonOf(const Doubt& doubt, const SongNotes& notes, const OpenPitches& open);

}  // namespace korvel
