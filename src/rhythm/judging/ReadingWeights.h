// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    1.33,   // barFit
    .79,    // chordFit
    5.94,   // tempo
    -1.0,   // tempoSquared
    1.06,   // barLength
    -3.9,   // barLengthSquared
    -5.74,  // bend
    .49,    // binaryFour
    -1.07,  // binaryThree
    -8.38,  // binaryTwo
    .23,    // ternaryFour
    -4.23,  // ternaryThree
    3.15,   // ternaryTwo
    .4,     // startsOnBar
    .3,     // endsOnBar
    -4.0,   // notSix
};

}  // namespace korvel::rhythm
