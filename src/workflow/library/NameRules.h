// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// Throws EditRefused for a name of nothing but blanks. What: what is named, such as "An album".
void requireName(const std::string& name, const char* what);

}  // namespace korvel
