// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace korvel {

/// The sixteenths that onsets are counted in.
struct BeatGrid {
  double tempo = 120;  ///< Quarters a minute.
  double start = 0;    ///< Seconds from the start of the recording to some sixteenth.

  double secondsOfSixteenth() const { return 15 / tempo; }
};

inline constexpr double kTempoWithoutBeat = 120;

/// The tempo, 70 to 140, whose sixteenths, eighths and quarters the gaps between neighbouring
/// onsets fit best; `kTempoWithoutBeat` when none fits. onsets: seconds, ascending.
double assumedTempo(std::span<const double> onsets);

/// The sixteenths of a tempo, shifted so that the onsets lie on them as well as can be.
BeatGrid gridOf(std::span<const double> onsets, double tempo);

}  // namespace korvel
