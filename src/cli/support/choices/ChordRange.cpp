// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/choices/ChordRange.h"

namespace korvel::cli {

RangeOptions addRange(Command& command, ChordRange& range) {
  const Option first = command.option("FROM", range.from, "Position of a chord, from 1");
  Option last = command.option("TO", range.to, "Position of a chord");
  last.needs(first);
  return {first, last};
}

}  // namespace korvel::cli
