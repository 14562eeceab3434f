// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "music/Neck.h"

namespace korvel {

/// What a recording is clearly played in, when that is something else than was thought.
struct FoundTuning {
  OpenPitches open{};
  /// How far its A lies above 440 Hz, in cents, where that is more than the half semitone up to
  /// which hearing looks for it.
  std::optional<double> farA{};
};

}  // namespace korvel
