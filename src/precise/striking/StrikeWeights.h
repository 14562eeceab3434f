// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/judging/Networks.h"
#include "precise/striking/StrikeInputs.h"

namespace korvel::precise {

/// Networks that tell whether a string was struck again.
using StrikeWeights = Networks<StrikeInputs::kCount, 3>;
const StrikeWeights& strikeWeights();

}  // namespace korvel::precise
