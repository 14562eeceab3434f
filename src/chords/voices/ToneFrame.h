// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "chords/seeing/LogScale.h"
#include "chords/seeing/ToneSolver.h"

namespace korvel::chords {

/// How strongly each tone sounds at a moment, which single voices are heard from. Roots of the
/// strengths, in steps of a thousandth, so that an hour of sound takes no more than 22 MB.
struct ToneFrame {
  using Strengths = std::array<std::uint16_t, kTones>;

  static constexpr float kStepsOfOne = 1024;

  Strengths tones{};  ///< As the solver explains the whitened spectrum.
  Strengths peaks{};  ///< The spectrum itself at the tone's fundamental.
};

/// row: in tune, without drums, and not whitened.
inline ToneFrame toneFrameOf(const LogRow& row, const Tones& tones) {
  const auto stored = [](float strength) {
    constexpr float kMost = 65535;
    const float root = std::sqrt(strength) * ToneFrame::kStepsOfOne;
    return root > 0 ? static_cast<std::uint16_t>(std::min(root, kMost)) : std::uint16_t{0};
  };
  ToneFrame frame;
  for (std::size_t i = 0; i < kTones; ++i) {
    const auto bin = static_cast<std::size_t>(kLowestTone - kLowestOfScale + static_cast<int>(i)) *
                     static_cast<std::size_t>(kBinsOfSemitone);
    frame.tones[i] = stored(tones[i]);
    frame.peaks[i] = stored(std::max({row[bin - 1], row[bin], row[bin + 1]}));
  }
  return frame;
}

}  // namespace korvel::chords
