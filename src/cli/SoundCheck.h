// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel::cli {

/// Looks at a file before anything is made of it: throws CliError, naming the file and what is
/// wrong, unless it has sound that can be decoded.
void requireSound(const std::string& file);

}  // namespace korvel::cli
