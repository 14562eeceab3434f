// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvel::exchange::guitarpro {

/// Whether a file of version 6 begins like this.
bool isGpx(std::string_view bytes);

/// The bytes of a file in the container of version 6, packed or not. Throws a UserError where it is
/// damaged or has no file of that name.
std::string fileInGpx(std::string_view bytes, std::string_view name);

}  // namespace korvel::exchange::guitarpro
