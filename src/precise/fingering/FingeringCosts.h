// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/fingering/FingeringOptions.h"

namespace korvel::precise {

/// What makes a way to play notes awkward. Only differences between ways count; the unit is a hand
/// that spans one fret too many. Frets, and the place of the hand (the fret that the first finger
/// is at), count from the capo.
///
/// Chosen by hill climbing for the most right strings on six annotated performances of two players,
/// four of them solos, some also moved up and down the neck, and on chords, arpeggios and melodies
/// in open position, both as written and as detected; then rounded. Each try was judged by its mean
/// over six random changes of all numbers by about a fifth, so that none of them is on an edge. The
/// four solos then have 96, 90, 92 and 94 % of their strings right, and 96, 90, 84 and 43 % when
/// each is left out of the choice: where a line lies is often up to the player.
struct FingeringCosts {
  /// A place of the hand: none yet, or none in particular.
  static constexpr int kNowhere = 0;

  float perFret = 0.004F;        ///< For each note and each fret up the neck.
  float wideSpan = 1;            ///< For each fret that pressed notes span beyond four.
  float hardSpan = 1.5F;         ///< For each beyond five, on top.
  float gap = 0.5F;              ///< For each string left alone between strings of a grip.
  float leave = 6.5F;            ///< For a note that is not played, times its probability.
  float shift = 0.3F;            ///< The hand leaves its place,
  float perFretShifted = 0.5F;   ///< and for the frets that it goes, to the power of 1.2.
  float perFretOfChord = 0.04F;  ///< For each of several notes at once, and fret of the hand.
  float perFretHigh = 0.25F;     ///< For each event and fret of the hand above the tenth.
  float openAway = 0.6F;         ///< For each open string while the hand is at the fifth fret or
                                 ///< above; half at the fourth. The line would change its sound.
  float openAtHome = -0.1F;      ///< For a single open string while the hand is at the first,
  float openOfChord = -0.35F;    ///< and for each of several notes.
  float cutOff = 1.2F;        ///< A string is needed for another fret while it rings on for long.
  int home = kNowhere;        ///< Where the hand is expected, and starts.
  int homeSlack = 0;          ///< Frets beside it that are as good.
  float perFretFromHome = 0;  ///< For each event and fret of the hand beyond that.

  /// Anywhere: as above, nothing is expected.
  /// Open: each fret of the hand away from the first costs 0.3 an event, so that a position higher
  /// up is taken for what cannot be reached otherwise and left again at once.
  /// Around fret n: the same with 0.5 for the hand away from n, a fret beside it being free.
  static FingeringCosts of(const FingeringOptions& options);
  static FingeringCosts openPosition();
};

}  // namespace korvel::precise
