// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// How well a piece lies under a hand on these strings: the logarithm of the sum over all ways to
/// play it, with so much less for each note that the strings have not. The higher the likelier;
/// it means something beside that of other strings only. The notes need no strings. Time and
/// memory grow with their number, about 2 µs and 1 kB a note.
double easeOn(const OpenPitches& open, const FingeringOptions& options,
              std::span<const Note> notes);

/// The tuning that notes were played in, when it is clearly another one than was thought: of these,
/// the one in which the piece lies better by far than on the strings that were thought of, with a
/// capo or without, and better than in the others. Notes which those strings have not let less be
/// enough. A piece without low notes and open strings says nothing.
std::optional<std::size_t> otherTuning(const OpenPitches& thought,
                                       std::span<const OpenPitches> tunings,
                                       const FingeringOptions& options,
                                       std::span<const Note> notes);

}  // namespace korvel::fingering
