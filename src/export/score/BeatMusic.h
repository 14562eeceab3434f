// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "export/score/Score.h"

namespace korvel {

/// A tone and how long it is written; it may ring on under the chords after its own, but at least
/// as long as that, and no longer than until its string is struck again.
struct BeatTone {
  ScoreTone tone;
  int length = 0;
};

/// What is struck together, and how long it is to the next chord or rest. One without tones is a
/// rest, or time that a tone of before rings through.
struct BeatChord {
  int start = 0;
  int length = 0;
  std::vector<BeatTone> tones;
  std::optional<ScoreHarmony> harmony;  ///< Repeated by all chords that it counts for.
};

/// Where a bar begins, and how long it is: less than the meter says in a pick-up.
struct BeatBar {
  int start = 0;
  int length = 0;
  Meter meter;
  std::optional<double> tempo;  ///< Quarters a minute, when it is another from here on.
};

/// Music with exact places, in units from the first bar line, on its way into bars: what songs and
/// heard notes have in common.
struct BeatMusic {
  std::vector<BeatChord> chords;  ///< By start.
  std::vector<BeatBar> bars;      ///< Without gaps; only the first one may be a pick-up.
};

/// How long a pick-up is written: one that begins within a triplet begins with its beat, which
/// rests fill.
int writtenPickUp(int length, const Meter& meter);

/// Bars of a meter from where the music begins to its end; what lies before 0 is a pick-up. At
/// least one.
std::vector<BeatBar> barsOver(int begin, int end, const Meter& meter);

/// The bars with all that sounds in them. Tones that ring through others are a voice of their own
/// when they lie below or above all of those, and are tied from event to event otherwise.
std::vector<ScoreBar> scoreBarsOf(const BeatMusic& music);

}  // namespace korvel
