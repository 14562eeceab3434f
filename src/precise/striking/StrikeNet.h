// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/striking/StrikeInputs.h"

namespace korvel::precise {

/// Whether a string which rings was struck again; see StrikeWeights.
bool isStruckAgain(const StrikeInputs::Inputs& inputs);

}  // namespace korvel::precise
