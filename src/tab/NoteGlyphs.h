// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tab/QBTextMatrix.h"

namespace korvel {

/// Draws a note value of so many sixteenths on the rows y - 2 to y; nothing when negative.
void setMetric(QBTextMatrix& matrix, int x, int y, int duration);

/// The part of a measure's beat ruler that belongs to a chord of so many sixteenths, `counter`
/// sixteenths into the measure; "" unless the time is 3/4, 4/4, 6/8 or 12/8. The group size does
/// not matter.
std::string metricString(int counter, int duration, int beat, int beattype, int groupSize);

}  // namespace korvel
