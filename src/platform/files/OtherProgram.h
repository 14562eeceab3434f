// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// What a program that has ended left.
struct ProgramResult {
  int status;  ///< Exit status; -1 when a signal ended it.
  std::string output;
};

/// Runs a program with these arguments and this standard input, and waits for it. What it says on
/// its standard error appears on that of this program. Throws FileError when it cannot be started.
ProgramResult runProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments, std::string_view input);

}  // namespace korvel::platform
