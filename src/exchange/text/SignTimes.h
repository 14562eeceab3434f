// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "exchange/text/BarTimes.h"

namespace korvel::exchange {

/// The times of a bar by its signs of rhythm, one after the other from its beginning: none unless
/// all that is struck has one. The length is that of all signs, and of a lone rest that of the bar.
std::optional<TimedBar> timesBySigns(const TabBar& bar, const Metre& metre);

/// By the beats that are counted beside it. What is counted from a later beat on is a pick-up if
/// the bar is the first one.
TimedBar timesByMarks(const TabBar& bar, const Metre& metre, bool isFirst);

/// Whether the signs of a bar say the same as what is counted beside it.
bool isAsCounted(const TabBar& bar, const TimedBar& timed);

/// What sounds until the next, the last one to the end of the bar.
void letSound(TimedBar& timed);

/// Brings what does not come one after the other within the bar to places that do.
void spread(TimedBar& timed);

}  // namespace korvel::exchange
