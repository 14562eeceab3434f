// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    0.457,    // barFit
    0.368,    // chordFit
    2.99,     // tempo
    -2,       // tempoSquared
    -1.24,    // barLength
    0.322,    // barLengthSquared
    -2.77,    // bend
    -0.195,   // binaryFour
    -2.07,    // binaryThree
    -3.29,    // binaryTwo
    0.838,    // ternaryFour
    -4.87,    // ternaryThree
    -2.54,    // ternaryTwo
    0.8,      // startsOnBar
    0.478,    // endsOnBar
    -0.139,   // notSix
    -0.544,   // ternaryTempo
    -2.77,    // sixTempo
    2.12,     // onsetsOfBeat
    0.782,    // onsetsOfBeatSquared
    -3.09,    // emptyBeats
    -1.84,    // fine
    -4.07,    // idleTernary
    0.0971,   // changesOfBar
    -0.591,   // changesOfBarSquared
    -0.0894,  // beatFit
    1.42,     // halfInTernary
    0.528,    // thirdsOfSix
    -8.15,    // thirdsOfTriplets
    2.18,     // takeOnBar
    1.7,      // beatLoud
    -1.41,    // beatLong
    3.3,      // beatLow
    -0.905,   // beatStroke
    4.76,     // beatHeld
    -2.8,     // beatFresh
    2.2,      // beatAgain
    1.76,     // barLoud
    -1.9,     // barLong
    2.52,     // barLow
    -3.33,    // barStroke
    3.19,     // barHeld
    2.1,      // barFresh
    -0.321,   // barAgain
};

}  // namespace korvel::rhythm
