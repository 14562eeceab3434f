// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    1.01,    // barFit
    0.565,   // chordFit
    2.59,    // tempo
    -1.74,   // tempoSquared
    -2.05,   // barLength
    0.137,   // barLengthSquared
    -4.48,   // bend
    -0.36,   // binaryFour
    -1.69,   // binaryThree
    -4.27,   // binaryTwo
    -0.996,  // ternaryFour
    -4.52,   // ternaryThree
    -2.53,   // ternaryTwo
    0.979,   // startsOnBar
    1.42,    // endsOnBar
    -0.578,  // notSix
    -0.516,  // ternaryTempo
    -3.84,   // sixTempo
    0.722,   // onsetsOfBeat
    0.752,   // onsetsOfBeatSquared
    -1.29,   // emptyBeats
    1.14,    // fine
    -1.48,   // idleTernary
    -0.156,  // changesOfBar
    -0.984,  // changesOfBarSquared
    -0.259,  // beatFit
};

}  // namespace korvel::rhythm
