// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBTabMatrix;

/// Draws a note value of so many sixteenths on the rows y - 2 to y; nothing when negative.
void setMetric(QBTabMatrix& matrix, int x, int y, int duration);

/// The part of the beat ruler that belongs to a chord of so many sixteenths, `counter` sixteenths
/// into the measure; "" unless the time is 3/4, 4/4, 6/8 or 12/8. The group does not matter.
std::string metricString(int counter, int duration, int beat, int beattype, int groupSize);

}  // namespace korvel
