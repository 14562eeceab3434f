// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Events.h"
#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// How much speaks for a melody at each event being played in open position, 0..1, though a hand
/// could play it elsewhere as well: 1 where all melodies of half a minute before and after lie
/// within its reach, and also from one note beyond it to the next where the lowest frets of the
/// lowest string are played between them.
std::vector<double> openPositionFit(const Events& events, std::span<const Note> notes,
                                    const OpenPitches& open, const Settled& settled);

}  // namespace korvel::fingering
