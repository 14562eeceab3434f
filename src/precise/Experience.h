// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "precise/seeing/Flux.h"
#include "precise/seeing/Levels.h"
#include "precise/seeing/Tuning.h"
#include "precise/solving/Adaptation.h"

namespace korvel::precise {

/// What the windows of a long recording that were heard before tell of it as a whole: how it is
/// tuned, how loud it is, how it hums, how its instrument sounds.
struct Experience {
  double expectedOffset = 0;  ///< In cents; the tuning is read as less than half a semitone off it.
  Tuning::Earlier tuning{};
  Levels::Earlier levels{};
  Flux::Earlier flux{};
  std::array<Adaptation::Sound, 2> sounds{};  ///< By the two lessons of a window.
};

}  // namespace korvel::precise
