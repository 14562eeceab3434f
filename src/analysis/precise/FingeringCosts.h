// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/precise/FingeringOptions.h"

namespace korvel::precise {

/// What makes a way to play notes awkward. Only differences between ways count; the unit is a hand
/// that spans one fret too many. Frets, and the place of the hand (the fret that the first finger
/// is at), count from the capo. Chosen on chords, scales and performances whose strings are known.
struct FingeringCosts {
  /// A place of the hand: none yet, or none in particular.
  static constexpr int kNowhere = 0;

  float perFret = 0.008F;       ///< For each note and each fret up the neck.
  float wideSpan = 1;           ///< For each fret that pressed notes span beyond four.
  float hardSpan = 1.5F;        ///< For each beyond five, on top.
  float gap = 0.15F;            ///< For each string left alone between strings of a grip.
  float shift = 0.2F;           ///< The hand leaves its place,
  float perFretShifted = 0.4F;  ///< and for each fret that it goes.
  float perFretOfChord = 0.1F;  ///< For several notes at once, and each fret of the hand.
  float perFretHigh = 0.1F;     ///< For each event and fret of the hand above the seventh.
  float cutOff = 1.2F;          ///< A string is needed for another fret while it rings on for long,
  float cutStrum = 1;           ///< or when its note has only just started.
  int home = kNowhere;          ///< Where the hand is expected, and starts.
  int homeSlack = 0;            ///< Frets beside it that are as good.
  float perFretFromHome = 0;    ///< For each event and fret of the hand beyond that.
  float openString = 0;         ///< For each open string.

  /// Anywhere: as above, nothing is expected.
  /// Open: each fret of the hand away from the first costs 0.3 an event, so that a position higher
  /// up is taken for what cannot be reached otherwise and left again at once.
  /// Around fret n: the same with 0.5 for the hand away from n, a fret beside it being free. From
  /// the fourth fret on an open string costs 0.5, as a fretted one is under the hand.
  static FingeringCosts of(const FingeringOptions& options);
};

}  // namespace korvel::precise
