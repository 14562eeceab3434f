// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/editing/NotWithin.h"

namespace korvel {

void requireWithin(const platform::Phrase& what, int value, int lowest, int highest) {
  if (value < lowest || value > highest)
    throw NotWithin(platform::UserText(what, value, lowest, highest));
}

}  // namespace korvel
