// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// One word of a chord declaration file.
struct Token {
  std::string type = ".";  ///< The only kind there is.
  std::string value;       ///< What stood between the angle brackets; may be empty.
};

}  // namespace korvel
