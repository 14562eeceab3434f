// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    0.518,     // barFit
    0.364,     // chordFit
    2.8,       // tempo
    -2.02,     // tempoSquared
    -1,        // barLength
    0.421,     // barLengthSquared
    -2.21,     // bend
    -0.279,    // binaryFour
    -1.48,     // binaryThree
    -3.43,     // binaryTwo
    -1.44,     // ternaryFour
    -4.7,      // ternaryThree
    -2.44,     // ternaryTwo
    0.8,       // startsOnBar
    1.06,      // endsOnBar
    -0.731,    // notSix
    0.951,     // ternaryTempo
    -5.45,     // sixTempo
    2.03,      // onsetsOfBeat
    0.339,     // onsetsOfBeatSquared
    -4.04,     // emptyBeats
    -0.46,     // fine
    -2.88,     // idleTernary
    -0.00485,  // changesOfBar
    -0.474,    // changesOfBarSquared
    -0.19,     // beatFit
    2.96,      // beatLoud
    -0.862,    // beatLong
    3.42,      // beatLow
    -1.7,      // beatStroke
    3.7,       // beatHeld
    -2.94,     // beatFresh
    1.24,      // beatAgain
    2.8,       // barLoud
    -2.67,     // barLong
    2.05,      // barLow
    -4.01,     // barStroke
    2.97,      // barHeld
    2.76,      // barFresh
    0.504,     // barAgain
};

}  // namespace korvel::rhythm
