// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "platform/loop/RunLoop.h"

namespace korvel::ui {

/// The window's event loop as the program's run loop: actions run between the events of the user.
///
/// What an action throws must not reach the toolkit. It goes to the listener, and the timer ends,
/// for the next tick would only throw again. While an action runs an event loop of its own, as a
/// dialog does, its timer rests. In one turn of the event loop one action runs, each in the order
/// in which it fell due: what several imports do together would keep the user waiting.
class QtRunLoop final : public platform::RunLoop {
 public:
  using Listener = std::function<void(const std::exception&)>;

  explicit QtRunLoop(Listener onException);
  ~QtRunLoop() override;

  /// Intervals are kept to the millisecond.
  std::unique_ptr<Timer> scheduleRepeating(double seconds, std::function<void()> action) override;

 private:
  class Turns;

  std::shared_ptr<Turns> m_turns;
};

}  // namespace korvel::ui
