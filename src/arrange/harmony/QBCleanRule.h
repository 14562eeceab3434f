// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBChord;

/// Asks a chord for a tone that goes with another one: on a certain string, so many semitones away.
struct QBCleanRule {
  int string;
  int offset;  ///< In semitones from the tested tone; negative.

  /// Whether the chord has that tone, for a tested tone at a string and fret.
  bool matches(const QBChord& chord, int testedString, int testedFret) const;
};

}  // namespace korvel
