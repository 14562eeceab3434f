// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// Strings as they may be tuned, and by how many semitones they sound higher than that says, as
/// their A is another one.
struct Strings {
  OpenPitches open{};
  int moved = 0;

  OpenPitches sounding() const;
  bool operator==(const Strings&) const = default;
};

/// The strings that notes were played on, when they are clearly others than was thought: of these,
/// those on which the piece lies better by far than on the strings that were thought of, with a
/// capo or without, and better than on the others. Notes which those strings have not let less be
/// enough. A piece without low notes and open strings says nothing. Whether strings that were moved
/// are what others are behind a capo is not asked: they sound alike.
std::optional<Strings> otherTuning(const OpenPitches& thought, std::span<const Strings> others,
                                   const FingeringOptions& options, std::span<const Note> notes);

}  // namespace korvel::fingering
