// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

#include "platform/text/UserError.h"
#include "platform/text/UserText.h"

namespace korvel {

/// There is none of that number.
class NotWithin : public std::out_of_range, public platform::Worded {
 public:
  explicit NotWithin(const platform::UserText& text)
      : std::out_of_range(text.english()), Worded(text) {}
};

/// Throws NotWithin. what: with places for the value and for both ends of the range.
void requireWithin(const platform::Phrase& what, int value, int lowest, int highest);

}  // namespace korvel
