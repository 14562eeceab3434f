// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// Names of the open strings in the selected tuning, the highest first; "" when none is selected.
std::string systemLabel();

}  // namespace korvel
