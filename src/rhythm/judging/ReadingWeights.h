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
    0.325,    // barLengthSquared
    -2.78,    // bend
    -0.195,   // binaryFour
    -2.07,    // binaryThree
    -3.28,    // binaryTwo
    -1.3,     // ternaryFour
    -4.87,    // ternaryThree
    -3.44,    // ternaryTwo
    0.8,      // startsOnBar
    0.875,    // endsOnBar
    -0.329,   // notSix
    0.796,    // ternaryTempo
    -5.01,    // sixTempo
    2.12,     // onsetsOfBeat
    0.778,    // onsetsOfBeatSquared
    -3.12,    // emptyBeats
    -1.84,    // fine
    -4.11,    // idleTernary
    0.0959,   // changesOfBar
    -0.589,   // changesOfBarSquared
    -0.0893,  // beatFit
    1.71,     // beatLoud
    -1.39,    // beatLong
    3.33,     // beatLow
    -0.898,   // beatStroke
    4.77,     // beatHeld
    -2.82,    // beatFresh
    2.22,     // beatAgain
    1.75,     // barLoud
    -1.91,    // barLong
    2.51,     // barLow
    -3.32,    // barStroke
    3.18,     // barHeld
    2.11,     // barFresh
    -0.358,   // barAgain
};

}  // namespace korvel::rhythm
