// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "export/score/BeatMusic.h"

namespace korvel {

class QBChord;
class QBMeasure;
class QBTone;

/// Those that sound, on the strings of the neck; in the hold's order.
std::vector<const QBTone*> playedTones(const QBChord& chord);

/// Its MIDI number. open: what the strings sound.
int pitchOf(const QBTone& tone, const std::vector<int>& open);

/// What a score says of a stored chord: its tones without those that are silenced, the highest on
/// each string, the lowest string first. Their lengths are their own ticks.
std::vector<BeatTone> tonesOf(const QBChord& chord, const std::vector<int>& open);

/// None for a chord without a name.
std::optional<ScoreHarmony> harmonyOf(const QBChord& chord);

/// 4/4 in place of what no score has.
Meter meterOf(const QBMeasure& measure);

}  // namespace korvel
