// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "arrange/strumming/StrumPatterns.h"
#include "chords/voices/Voice.h"
#include "music/Neck.h"
#include "precise/Settings.h"
#include "rhythm/Reading.h"

namespace korvel {

/// What the chords of a song stand for: equal slices of the recording's time, or what is struck
/// together, as it is written in bars.
enum class Grid { slices, beats };

/// What plays in a recording: one guitar, of which notes are heard, or a band, of which chords are.
enum class Players { guitar, band, automatic };

/// What the user may say to a detection that hears a recording as a whole.
struct HearingSettings : precise::Settings {
  Grid grid = Grid::slices;
  rhythm::Wishes rhythm{};
  Players players = Players::guitar;
  /// Tunings that the recording may be in instead of its song's, which notes can tell.
  std::vector<OpenPitches> tunings{};
  bool takesTuning = false;  ///< What is found so is taken, and not only told of.
  const StrumPattern* strum = &strumOnBeats();  ///< How a band's chords are struck.
  chords::Voices voices{};                      ///< Which voices of a band are heard, too.
};

/// What front ends choose unless told otherwise: a song on beats.
inline HearingSettings settingsOfFrontEnds() {
  HearingSettings settings;
  settings.grid = Grid::beats;
  return settings;
}

}  // namespace korvel
