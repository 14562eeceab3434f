// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingering/FingeringOptions.h"

namespace korvel::precise {

using fingering::FingeringOptions;
using fingering::Position;

/// What the user may say to the precise detection.
struct Settings {
  /// 0..1: how faint or doubtful a note may be; 0.5 is the most probable reading.
  double sensitivity = 0.5;
  FingeringOptions fingering{};
};

}  // namespace korvel::precise
