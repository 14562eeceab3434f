// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/ending/EndInputs.h"
#include "precise/judging/Networks.h"

namespace korvel::precise {

/// Networks that tell whether a note still sounds.
using EndWeights = Networks<EndInputs::kCount, 3>;
const EndWeights& endWeights();

}  // namespace korvel::precise
