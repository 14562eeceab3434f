// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/judging/Networks.h"
#include "precise/striking/OnsetInputs.h"

namespace korvel::precise {

/// Networks that tell whether a note begins in a frame.
using OnsetWeights = Networks<OnsetInputs::kCount, 3>;
const OnsetWeights& onsetWeights();

}  // namespace korvel::precise
