// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "rhythm/judging/ReadingFeatures.h"

namespace korvel::rhythm {

/// The weights of the features, in their order. They were fitted to made-up pieces whose reading is
/// known, as a conditional logit over all readings of a piece.
inline constexpr std::array<double, kFeatures> kReadingWeights{
    0.861,   // barFit
    0.462,   // chordFit
    3.04,    // tempo
    -2.12,   // tempoSquared
    -0.936,  // barLength
    0.491,   // barLengthSquared
    -3.21,   // bend
    -0.338,  // binaryFour
    -1.45,   // binaryThree
    -3.1,    // binaryTwo
    -1.32,   // ternaryFour
    -3.71,   // ternaryThree
    -2.55,   // ternaryTwo
    0.8,     // startsOnBar
    1.06,    // endsOnBar
    -0.371,  // notSix
    -0.108,  // ternaryTempo
    -5.19,   // sixTempo
    1.15,    // onsetsOfBeat
    0.849,   // onsetsOfBeatSquared
    -1.73,   // emptyBeats
    -1.04,   // fine
    -1.6,    // idleTernary
    0.109,   // changesOfBar
    -0.884,  // changesOfBarSquared
    -0.257,  // beatFit
};

}  // namespace korvel::rhythm
