// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "chords/BandSound.h"
#include "rhythm/Reading.h"

namespace korvel {

/// Whether a reading's beats are those of a tempo twice that of the band: the bass drum goes round
/// in four of them, as it does in two where it is played on the first beat and the third.
bool isReadTwiceAsFast(std::span<const chords::Stroke> strokes, const rhythm::Reading& reading);

}  // namespace korvel
