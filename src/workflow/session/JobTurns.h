// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "platform/loop/RunLoop.h"

namespace korvel {

/// Steps all jobs on one timer, by turns. However many run, the user's events come between the
/// steps of them; with a timer each, all would step before the next event. Main thread.
class JobTurns {
 public:
  /// Calls the step a hundred times a second, less often while other jobs take their time, until
  /// the answered timer ends. Other jobs go on when one throws.
  [[nodiscard]] static std::unique_ptr<platform::RunLoop::Timer> begin(std::function<void()> step);
};

}  // namespace korvel
