// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "chords/voices/Voice.h"
#include "chords/voices/VoiceEvidence.h"
#include "chords/voices/VoiceWeights.h"

namespace korvel::chords {

/// The line that explains most of what is heard of a voice: at each place it rests or has a tone,
/// which sounds on, is struck again or is another one than before. Small steps, long tones and few
/// rests are preferred. Notes do not overlap, and their places are those of the evidence.
std::vector<VoiceNote> bestLine(std::span<const VoiceEvidence> places, const VoiceWeights& weights);

}  // namespace korvel::chords
