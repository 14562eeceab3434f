// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "rhythm/Reading.h"
#include "rhythm/beats/Onset.h"
#include "rhythm/judging/OnsetPhases.h"

namespace korvel::rhythm {

/// How beats are divided in a reading: which share of the onsets is near each part of a beat.
struct DivisionUse {
  double firstThird = 0;
  double secondThird = 0;
  double half = 0;
  double fine = 0;        ///< Near quarters and sixths.
  double emptyBeats = 0;  ///< The share of the beats that have no onset near them.

  /// Both thirds are used, as in 6/8, and not only the second one, as in swing.
  bool hasBothThirds() const { return firstThird >= 0.35 * secondThird; }
  bool isSixEight() const { return firstThird > 0.10 && hasBothThirds(); }
  /// How beats divided by three are felt.
  Feel ternaryFeel() const;
};

/// One onset at least.
DivisionUse useOf(std::span<const Onset> onsets, std::span<const Phase> phases);

}  // namespace korvel::rhythm
