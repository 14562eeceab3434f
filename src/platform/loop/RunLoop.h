// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

namespace korvel::platform {

/// Runs repeating timers on the main thread. Everything here belongs to that thread.
class RunLoop {
 public:
  /// A scheduled action. Ends with the object, which may happen inside the action itself.
  class Timer {
   public:
    Timer() = default;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    virtual ~Timer() = default;
    /// The action is not called any more. May be called again and inside the action.
    virtual void invalidate() = 0;
  };

  RunLoop() = default;
  RunLoop(const RunLoop&) = delete;
  RunLoop& operator=(const RunLoop&) = delete;
  virtual ~RunLoop() = default;

  /// Calls the action every so many seconds, first after one interval. Ticks that were missed while
  /// other work ran are left out. An interval too short to keep stands for a tenth of a
  /// millisecond.
  [[nodiscard]] virtual std::unique_ptr<Timer> scheduleRepeating(double seconds,
                                                                 std::function<void()> action) = 0;

  /// The main thread's loop: the installed one, or else PlainRunLoop::ofProcess().
  static RunLoop& main();
  /// Puts the loop of a window toolkit in. It must outlive all use of main(); nullptr takes it out.
  static void install(RunLoop* loop);
};

}  // namespace korvel::platform
