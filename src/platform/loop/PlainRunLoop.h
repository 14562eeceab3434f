// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "platform/loop/RunLoop.h"

namespace korvel::platform {

/// The run loop of a program without windows: timers fire while runUntil runs.
class PlainRunLoop : public RunLoop {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Where the loop's time comes from; a test may run on a clock of its own.
  struct Clock {
    std::function<Time()> now;
    std::function<void(Time)> sleepUntil;
    static Clock steady();
  };

  explicit PlainRunLoop(Clock clock = Clock::steady());
  ~PlainRunLoop() override;

  static PlainRunLoop& ofProcess();

  std::unique_ptr<Timer> scheduleRepeating(double seconds, std::function<void()> action) override;

  /// Fires timers in the order of their due times, those due together in the order of scheduling,
  /// and sleeps in between, until done answers true. Done is asked first and after every action.
  /// Ends also when no timer is left that could change anything. What an action throws comes out
  /// here; its timer stays scheduled. An action may run the loop in turn; its own timer rests then.
  void runUntil(const std::function<bool()>& done);

 private:
  struct Entry;
  class Handle;

  std::shared_ptr<Entry> nextDue();
  void fire(Entry& entry);

  Clock m_clock;
  std::vector<std::shared_ptr<Entry>> m_entries;
};

}  // namespace korvel::platform
