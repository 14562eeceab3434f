// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "chords/BandSound.h"

namespace korvel::chords {

/// What tells a band from a guitar alone.
struct SoundMeasures {
  double usualDrums = 0;  ///< Share of drums: the median of frames that are not soft,
  double mostDrums = 0;   ///< and what a tenth of them has more of.
  double low = 0;         ///< Share of the power below 77 Hz.
};

SoundMeasures measuresOf(const BandSound& sound);

/// Whether several instruments play. sureness: the mean probability of the notes that were heard, 1
/// without any; of a band few notes are sure.
bool isBand(const SoundMeasures& measures, double sureness);

}  // namespace korvel::chords
