// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/NameRules.h"

#include "workflow/session/EditRefused.h"

namespace korvel {

void requireName(const std::string& name, const platform::Phrase& refusal) {
  if (name.find_first_not_of(" \t\r\n") == std::string::npos) throw EditRefused(refusal);
}

}  // namespace korvel
