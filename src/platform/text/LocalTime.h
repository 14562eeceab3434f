// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::platform {

/// Now, on the user's clock, in a format of std::strftime; up to 31 characters.
std::string localTime(const char* format);

}  // namespace korvel::platform
