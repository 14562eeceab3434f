// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/support/Command.h"

namespace korvel::cli {

/// Two chords of a song by their positions, counted from 1.
struct ChordRange {
  int from = 0, to = 0;
};

/// To say more about them.
struct RangeOptions {
  Option first, last;
};

/// Has a command take FROM and TO, both or none.
RangeOptions addRange(Command& command, ChordRange& range);

}  // namespace korvel::cli
