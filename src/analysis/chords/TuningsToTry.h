// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "fingering/TuningFit.h"
#include "music/Neck.h"

namespace korvel {

/// The strings that a recording may be played on, instead of those that were thought of: these
/// tunings, as far down as is heard. Where the A was heard further from 440 Hz than anybody tunes
/// by a fork, those that were thought of may as well have an A on the other side of 440 Hz, and all
/// sound a semitone lower or higher: they take the place of a tuning that sounds so, such as Eb.
/// offset: how far the A that was heard lies above 440 Hz, in cents, -50..50.
std::vector<fingering::Strings> tuningsToTry(const OpenPitches& thought,
                                             std::span<const OpenPitches> tunings, double offset);

}  // namespace korvel
