// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/beats/Onset.h"

namespace korvel::rhythm {

/// Joins the notes of each chord and strum, and says how each onset differs from those around it.
/// By time; notes have to come by onset.
std::vector<Onset> onsetsOf(std::span<const fingering::Note> notes);

}  // namespace korvel::rhythm
