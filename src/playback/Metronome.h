// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "platform/midi/MusicTrack.h"
#include "playback/ChordTimes.h"

namespace korvel {

/// Adds clicks of General MIDI's percussion on beats, another, louder sound on the first of a bar.
void addClicks(std::span<const TimedBeat> beats, platform::MusicTrack& track);

}  // namespace korvel
