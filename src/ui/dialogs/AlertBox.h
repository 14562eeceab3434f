// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workflow/session/SessionViews.h"

namespace korvel::ui {

/// A modal box for a fatal error; the program ends with status 0 once it was read.
class AlertBox final : public FatalAlert {
 public:
  void show(const platform::UserText& text) override;
  int exitStatus() const override;
};

}  // namespace korvel::ui
