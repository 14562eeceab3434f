// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

/// What was heard in a recording, as bytes to be stored: little-endian, a version first, about 15
/// bytes a note. Times are rounded to samples at 44100 a second.
using Bytes = std::vector<std::byte>;

struct HeardNotes {
  std::vector<fingering::Note> taken;     ///< By onset.
  std::vector<fingering::Note> doubtful;  ///< Likewise.
};

Bytes bytesOf(const HeardNotes& notes);
/// None for bytes of a later version, and for those that are damaged.
std::optional<HeardNotes> heardNotes(std::span<const std::byte> bytes);

/// A reading without its events and notes, which are read anew, with what the user said.
struct StoredRhythm {
  Rhythm rhythm;
  Wishes wishes;
};

Bytes bytesOf(const Rhythm& rhythm, const Wishes& wishes);
std::optional<StoredRhythm> storedRhythm(std::span<const std::byte> bytes);

}  // namespace korvel::rhythm
