// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/library/NameRules.h"

#include "workflow/session/EditRefused.h"

namespace korvel {

void requireName(const std::string& name, const char* what) {
  if (name.find_first_not_of(" \t\r\n") == std::string::npos)
    throw EditRefused(std::string(what) + " needs a name; type one");
}

}  // namespace korvel
