// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>

#include "fingering/FingeringOptions.h"
#include "music/ConcertPitch.h"

namespace korvel::precise {

using fingering::FingeringOptions;
using fingering::Position;

/// The probability from which a candidate is a note. Most are surely one or surely none, so that
/// the ends lie far apart.
inline double thresholdOf(double sensitivity) {
  constexpr double kStrict = 0.8;
  constexpr double kMiddle = 0.5;
  constexpr double kLenient = 0.15;
  const double s = std::clamp(sensitivity, 0.0, 1.0);
  return s < 0.5 ? std::lerp(kStrict, kMiddle, 2 * s) : std::lerp(kMiddle, kLenient, 2 * s - 1);
}

/// What the user may say to the precise detection.
struct Settings {
  /// 0..1: how faint or doubtful a note may be; 0.5 is the most probable reading.
  double sensitivity = 0.5;
  /// Hertz that the A is tuned to, within half a semitone: what is heard is read as near that.
  double concertA = kHertzOfConcertA;
  FingeringOptions fingering{};
};

}  // namespace korvel::precise
