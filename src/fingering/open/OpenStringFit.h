// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Events.h"
#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// How well the open strings fit each event, from the notes that sound half a minute before and
/// after it: 0 where they fit as well as any pitches would, 1 where the share of time in which an
/// open string's note sounds, in whatever octave, is a fifth above that.
std::vector<double> openStringFit(const Events& events, std::span<const Note> notes,
                                  const OpenPitches& open);

}  // namespace korvel::fingering
