// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/StrikeNet.h"

#include "precise/striking/StrikeWeights.h"

namespace korvel::precise {
namespace {

/// The logarithm of the odds that are asked for, two to one: in the pieces of the fit strings are
/// struck again more often than elsewhere.
constexpr float kLeastOdds = 0.7F;

}  // namespace

bool isStruckAgain(const StrikeInputs::Inputs& inputs) {
  return logOdds(strikeWeights(), inputs) > kLeastOdds;
}

}  // namespace korvel::precise
