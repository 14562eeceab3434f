// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/judging/OnsetPhases.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korvel::rhythm {
namespace {

/// A bell curve, tabulated up to five times its width.
class Bell {
 public:
  explicit Bell(double width) : m_scale(kSteps / (kReach * width)) {
    const double peak = 1 / (width * std::sqrt(2 * std::numbers::pi));
    for (int i = 0; i < kSteps; ++i) {
      const double far = kReach * (i + 0.5) / kSteps;
      m_values[static_cast<std::size_t>(i)] = static_cast<float>(peak * std::exp(-far * far / 2));
    }
  }

  float at(double far) const {
    const double step = std::abs(far) * m_scale;
    return step < kSteps ? m_values[static_cast<std::size_t>(step)] : 0;
  }

 private:
  static constexpr int kSteps = 512;
  static constexpr double kReach = 5;

  double m_scale;
  std::array<float, kSteps> m_values{};
};

}  // namespace

OnsetPhases::OnsetPhases(std::span<const Onset> onsets, const BeatTrack& track) {
  m_phases.reserve(onsets.size());
  std::size_t beat = 0;
  for (const Onset& onset : onsets) {
    while (beat + 2 < track.size() && track[beat + 1] <= onset.time) ++beat;
    const double length = track[beat + 1] - track[beat];
    Phase phase;
    phase.beat = beat;
    phase.length = static_cast<float>(length);
    phase.share = static_cast<float>(std::clamp((onset.time - track[beat]) / length, 0.0, 1.0));
    m_phases.push_back(phase);
  }
}

void OnsetPhases::setWidth(double width) {
  const Bell bell(width);
  for (Phase& phase : m_phases) {
    for (std::size_t k = 0; k <= kPlaces; ++k) {
      const double place = k < kPlaces ? double{1} * kPlaceTicks[k] / kTicksOfBeat : 1;
      phase.density[k] = bell.at((phase.share - place) * phase.length);
    }
  }
}

}  // namespace korvel::rhythm
