// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace korvel {

/// Appends samples of which 1 is full scale as 16-bit ones; louder ones are clipped.
inline void append16(std::vector<std::int16_t>& to, std::span<const float> samples) {
  for (const float sample : samples)
    to.push_back(
        static_cast<std::int16_t>(std::lrint(std::clamp(sample * 32768.0F, -32768.0F, 32767.0F))));
}

}  // namespace korvel
