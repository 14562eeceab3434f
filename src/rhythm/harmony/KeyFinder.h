// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel::rhythm {

/// The key whose tones are used most as these notes are; the first and the last chord speak for
/// theirs. None without notes.
std::optional<Key> keyOf(std::span<const fingering::Note> notes, std::span<const ChordSpan> chords);

}  // namespace korvel::rhythm
