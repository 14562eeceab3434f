// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "platform/sound/SampleRate.h"

namespace korvel::chords {

/// Samples a second of what is looked at.
inline constexpr double kRate = platform::kSampleRate / 4.0;

/// One frame to the next, in samples at kRate and in seconds. Frame t is centred at t * kHop.
inline constexpr std::size_t kHop = 512;
inline constexpr double kHopSeconds = kHop / kRate;

/// Three bins a semitone, from one MIDI number to another.
inline constexpr int kBinsOfSemitone = 3;
inline constexpr int kLowestOfScale = 27;
inline constexpr int kHighestOfScale = 98;
inline constexpr std::size_t kBins =
    static_cast<std::size_t>((kHighestOfScale - kLowestOfScale) * kBinsOfSemitone + 1);

/// A spectrum on this scale.
using LogRow = std::array<float, kBins>;

}  // namespace korvel::chords
