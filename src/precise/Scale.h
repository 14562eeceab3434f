// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "music/ConcertPitch.h"
#include "platform/sound/SampleRate.h"
#include "precise/Analysis.h"

/// The units that the parts of the precise detection share: frames of time, pitches, bins of
/// logarithmic frequency.
namespace korvel::precise {

/// A position in time, in frames; signed, since windows of frames reach before the first.
using Frame = std::ptrdiff_t;

/// Samples per second of what the detection is given, and of what it looks at.
inline constexpr double kInputRate = platform::kSampleRate;
inline constexpr double kRate = kInputRate / 2;
/// Samples at kRate from one frame to the next.
inline constexpr std::size_t kHop = 256;
inline constexpr double kFramesPerSecond = kRate / kHop;

inline constexpr std::size_t kPitches = Analysis::kPitches;

/// The bins of a spectrum. Bin 0 lies a semitone below the lowest pitch. On this scale the
/// overtones of every pitch lie at the same distances from its fundamental.
inline constexpr std::size_t kBinsPerSemitone = 3;
inline constexpr std::size_t kBins = 240;
/// The coarse bins in which onsets are sought, one for each semitone from bin 0 on.
inline constexpr std::size_t kOnsetBins = 80;

using BinRow = std::array<float, kBins>;
using OnsetRow = std::array<float, kOnsetBins>;

/// Frequency of a bin of a scale, bin 0 a semitone below the lowest pitch.
inline double binCentre(std::size_t bin, std::size_t binsPerSemitone) {
  return hertzOfNote(Analysis::kLowestPitch - 1 +
                     static_cast<double>(bin) / static_cast<double>(binsPerSemitone));
}

/// The bin of a pitch's fundamental; pitches count from 0 here.
constexpr std::size_t fundamentalBin(std::size_t pitch) { return kBinsPerSemitone * (pitch + 1); }

/// A pitch as the formulas see it, 0 in the middle of the neck.
constexpr double centredPitch(std::size_t pitch) {
  return (static_cast<double>(pitch) + Analysis::kLowestPitch - 58) / 20;
}

}  // namespace korvel::precise
