// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/text/UserText.h"

namespace korvel {

/// Throws EditRefused for a name of nothing but blanks. refusal: what is said then.
void requireName(const std::string& name, const platform::Phrase& refusal);

}  // namespace korvel
