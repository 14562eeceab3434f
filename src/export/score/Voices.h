// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "export/score/BeatMusic.h"

namespace korvel {

/// A tone from where it is struck to where it ends, in units from the first bar line.
struct VoicedTone {
  ScoreTone tone;
  int start;
  int end;
};

/// The tones of two voices, by start: the one that is written above, and the one below. Tones that
/// overlap and do not begin and end together are of different voices, the lower one below, but for
/// those that lie between others, which stay above.
using Voices = std::array<std::vector<VoicedTone>, 2>;

Voices voicesOf(const BeatMusic& music);

}  // namespace korvel
