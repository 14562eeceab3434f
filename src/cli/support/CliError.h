// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace korvel::cli {

/// Something that the user can mend; what() is the line to print.
class CliError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace korvel::cli
