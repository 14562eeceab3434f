// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/beats/HeardSound.h"
#include "fingering/FingeringOptions.h"
#include "music/Neck.h"

namespace korvel {

/// Makes the notes of what was heard those that a hand plays to its chords: each chord is struck
/// where it begins and on every bar line that it lasts beyond, and sounds until the next one. A
/// note is as probable as its chord.
void gripChords(const OpenPitches& open, const fingering::FingeringOptions& options,
                HeardSound& heard);

}  // namespace korvel
