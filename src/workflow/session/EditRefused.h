// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/text/UserError.h"

namespace korvel {

/// An edit that cannot be made; the text says why. Nothing has changed.
class EditRefused : public platform::UserError {
 public:
  using UserError::UserError;
};

}  // namespace korvel
