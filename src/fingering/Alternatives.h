// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "fingering/grips/Grip.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// Ways to play all of the notes with the hand elsewhere on the neck, by the mean of their frets,
/// the lowest first; no two are alike. As `Fingering::place` leaves the notes. Of the options the
/// position does not count.
std::vector<std::vector<Note>> alternatives(const OpenPitches& open,
                                            const FingeringOptions& options,
                                            std::span<const Note> notes);

/// Ways to hold notes of rising pitch at once, each of them played, the one that a hand likes best
/// first, wherever it is. At most six notes; frets as in `Grip`, for open strings and frets with
/// the capo on.
std::vector<Grip> gripsByEase(const OpenPitches& open, int frets, std::span<const int> pitches);

}  // namespace korvel::fingering
