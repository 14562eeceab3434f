// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

/// Seconds that one chord of a song stands for: a block of 16384 samples at 44100 Hz. As a note
/// value it is a sixteenth.
inline constexpr double kSecondsOfChord = 0.37151927437641724;

/// The time a step later. In single precision, so that times that are added up step by step are the
/// same wherever they are.
inline float stepAfter(float time) { return static_cast<float>(time + kSecondsOfChord); }

inline constexpr int kSixteenthsOfQuarter = 4;
inline constexpr int kSixteenthsOfWhole = 16;

}  // namespace korvel
