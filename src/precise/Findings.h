// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "precise/NoteCurves.h"

namespace korvel::precise {

/// The notes of a recording of any length, by onset, and what blocks are made of besides.
struct Findings {
  std::vector<Note> notes{};
  NoteCurves curves{};  ///< Of the notes, in their order.
  Frame frames = 0;     ///< Of the recording.
};

}  // namespace korvel::precise
