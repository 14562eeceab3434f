// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/striking/StrikeInputs.h"

namespace korvel::precise {

/// The logarithm of the odds that a string which rings was struck again; see StrikeWeights. The
/// same bits on every machine.
float strikeOdds(const StrikeInputs::Inputs& inputs);

}  // namespace korvel::precise
