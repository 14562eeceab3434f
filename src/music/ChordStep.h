// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "platform/sound/SampleRate.h"

namespace korvel {

/// What one chord of a song stands for: a block of so many samples, and the seconds that it takes.
/// As a note value it is a sixteenth.
inline constexpr std::size_t kSamplesOfChord = 16384;
inline constexpr double kSecondsOfChord = double{kSamplesOfChord} / platform::kSampleRate;
static_assert(kSecondsOfChord == 0.37151927437641724, "stored songs were timed with it");

/// The time a step later. In single precision, so that times that are added up step by step are the
/// same wherever they are.
inline float stepAfter(float time) { return static_cast<float>(time + kSecondsOfChord); }

inline constexpr int kSixteenthsOfQuarter = 4;
inline constexpr int kSixteenthsOfWhole = 16;

/// No chord or tone is taken to be longer, whatever a store says: a thousand bars of sixteenths.
inline constexpr int kLongestDuration = 16384;

}  // namespace korvel
