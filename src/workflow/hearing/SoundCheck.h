// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace korvel {

/// A file that there is nothing to hear in; what() names it and says what to do.
class NoSound : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Looks at a file before anything is made of it: throws NoSound unless it has sound that can be
/// decoded.
void requireSound(const std::string& file);

}  // namespace korvel
