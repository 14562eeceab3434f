// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/Note.h"
#include "rhythm/Reading.h"
#include "rhythm/beats/Onset.h"
#include "rhythm/judging/BarFit.h"

namespace korvel::rhythm {

/// One chord for each stretch of beats, from the first beat to the last one. Changes are cheaper on
/// bar lines. Notes by onset; ticks count from the beat bars.first.
std::vector<ChordSpan> chordsOnBeats(const BeatTrack& track, const Bars& bars,
                                     std::span<const fingering::Note> notes);

}  // namespace korvel::rhythm
