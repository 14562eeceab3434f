// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "fingering/Note.h"
#include "rhythm/Reading.h"

namespace korvel {

/// What is less probable is right hardly more often than not, and is marked wherever it is shown.
inline constexpr double kSureName = 0.7;

/// Tells the reading's chords how probable their names are. Notes by onset.
void tellProbabilities(std::span<const fingering::Note> notes, rhythm::Reading& reading);

}  // namespace korvel
