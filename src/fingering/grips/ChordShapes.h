// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fingering/grips/Grip.h"

namespace korvel::fingering {

/// How much rather a hand takes this grip because it is a shape that guitarists know: the logarithm
/// of a factor, 0 for any other shape and for less than three notes. A shape without open strings
/// is the same at every fret. Strings are expected to lie a fourth, and from the fourth to the
/// fifth a major third, apart.
double familiarity(const Grip& grip);

}  // namespace korvel::fingering
