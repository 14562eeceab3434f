// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>

namespace korvel {

/// An edit that cannot be made; what() says why, in a line for the user. Nothing has changed.
class EditRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace korvel
