// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// A cell's number without its fraction; numbers beyond the range of int stop at its ends.
int truncated(float f);

/// The truncated number, right-aligned in two characters.
std::string cellText(float f);

}  // namespace korvel
