// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvel::platform {

/// The whole number that a text begins with, after blanks: an optional sign and digits. Whatever
/// follows is ignored; a text that begins with no number gives 0, one out of range the nearest int.
int intValue(std::string_view text);

}  // namespace korvel::platform
