// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/arranging/guided/SongGuide.h"

namespace korvel {

struct StrumPattern;

/// The chords of a song on beats, strummed in a pattern: in each bar, while chords of one name
/// last, the strings that are played there are struck as it says. Where those are no grip of the
/// chord, its easiest one is. Refuses a song that is not on beats and one of which no chord has a
/// name.
SongGuide strummedBy(const StrumPattern& pattern);

}  // namespace korvel
