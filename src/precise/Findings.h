// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "precise/NoteCurves.h"

namespace korvel::precise {

/// The notes of a recording of any length, and what blocks are made of besides.
struct Findings {
  std::vector<Note> notes{};  ///< By onset.
  NoteCurves curves{};        ///< Of the notes, in their order.
  Frame frames = 0;           ///< Of the recording.
  double tuningOffset = 0;    ///< Of the first window: see Analysis::tuningOffset.
  /// What may have been notes too but was not taken for such, by onset: see Analysis::doubtful.
  std::vector<Note> doubtful{};
};

}  // namespace korvel::precise
