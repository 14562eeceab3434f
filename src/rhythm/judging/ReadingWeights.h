// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    0.685,   // barFit
    0.506,   // chordFit
    2.7,     // tempo
    -2.63,   // tempoSquared
    -0.785,  // barLength
    0.571,   // barLengthSquared
    -1.89,   // bend
    -0.149,  // binaryFour
    -1.45,   // binaryThree
    -3.07,   // binaryTwo
    -1.33,   // ternaryFour
    -4.05,   // ternaryThree
    -2.49,   // ternaryTwo
    0.8,     // startsOnBar
    0.77,    // endsOnBar
    -0.801,  // notSix
    0.0361,  // ternaryTempo
    -5.13,   // sixTempo
    1.51,    // onsetsOfBeat
    0.86,    // onsetsOfBeatSquared
    -2.52,   // emptyBeats
    -2.04,   // fine
    -1.17,   // idleTernary
    0.0355,  // changesOfBar
    -0.793,  // changesOfBarSquared
    -0.245,  // beatFit
    2.85,    // beatLoud
    -1.09,   // beatLong
    3.17,    // beatLow
    -1.22,   // beatStroke
    4.49,    // beatHeld
    -1.68,   // beatFresh
    2.86,    // beatAgain
    2.77,    // barLoud
    -2.96,   // barLong
    0.975,   // barLow
    -4.34,   // barStroke
    3.04,    // barHeld
    0.697,   // barFresh
    1.03,    // barAgain
};

}  // namespace korvel::rhythm
