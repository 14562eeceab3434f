// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/beats/HeardSound.h"
#include "arrange/strumming/StrumPatterns.h"
#include "fingering/FingeringOptions.h"
#include "music/Neck.h"

namespace korvel {

/// Makes the notes of what was heard those that a hand plays to its chords: each chord is struck
/// where it begins and by the pattern in every bar, softer with fewer strings. A note is as
/// probable as its chord, and sounds until its string is struck again.
void gripChords(const OpenPitches& open, const fingering::FingeringOptions& options,
                const StrumPattern& pattern, HeardSound& heard);

}  // namespace korvel
