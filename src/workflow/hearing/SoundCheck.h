// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/text/UserError.h"

namespace korvel {

/// A file that there is nothing to hear in; the text names it and says what to do.
class NoSound : public platform::UserError {
 public:
  using UserError::UserError;
};

/// Looks at a file before anything is made of it: throws NoSound unless it has sound that can be
/// decoded.
void requireSound(const std::string& file);

}  // namespace korvel
