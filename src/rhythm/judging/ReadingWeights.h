// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order: the mean of fits of tools/rhythm/fit_rhythm.py to
/// 700 and to 1,100 made-up pieces whose reading is known, and to parts of 13 performances, as a
/// conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    0.443,    // barFit
    0.214,    // chordFit
    2.95,     // tempo
    -2.02,    // tempoSquared
    -1.24,    // barLength
    0.201,    // barLengthSquared
    -4.08,    // bend
    -0.109,   // binaryFour
    -1.95,    // binaryThree
    -3.22,    // binaryTwo
    -1.57,    // ternaryFour
    -5.05,    // ternaryThree
    -2.98,    // ternaryTwo
    0.8,      // startsOnBar
    0.833,    // endsOnBar
    -0.801,   // notSix
    -0.577,   // ternaryTempo
    -4.05,    // sixTempo
    2.17,     // onsetsOfBeat
    0.705,    // onsetsOfBeatSquared
    -1.75,    // emptyBeats
    -1.74,    // fine
    -4.64,    // idleTernary
    0.109,    // changesOfBar
    -0.826,   // changesOfBarSquared
    -0.0429,  // beatFit
    0.995,    // half
    -8.12,    // firstThird
    5.67,     // secondThird
    -1.17,    // writing
    -0.952,   // emptyBars
    1.64,     // chordMean
    2.86,     // beatLoud
    -1.34,    // beatLong
    3.53,     // beatLow
    -0.967,   // beatStroke
    4.59,     // beatHeld
    -4.42,    // beatFresh
    2.53,     // beatAgain
    1.57,     // barLoud
    -2.3,     // barLong
    2.72,     // barLow
    -2.85,    // barStroke
    3.46,     // barHeld
    2.27,     // barFresh
    -0.151,   // barAgain
};

}  // namespace korvel::rhythm
