// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/text/UserText.h"

namespace korvel {

/// Throws EditRefused for a name that is too long to be shown anywhere.
void requireShortName(const std::string& name);

/// Throws EditRefused for a name of nothing but blanks, or one that is too long. refusal: what is
/// said to the first.
void requireName(const std::string& name, const platform::Phrase& refusal);

}  // namespace korvel
