// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <functional>
#include <utility>

#include "platform/loop/PlainRunLoop.h"

namespace korvel::test {

/// The main run loop for the time of a test, on a clock that jumps instead of waiting.
class JumpingLoop {
 public:
  /// Passes: is told the seconds that each jump leaves out.
  explicit JumpingLoop(std::function<void(double)> passes = [](double) {})
      : m_passes(std::move(passes)) {
    platform::RunLoop::install(&m_loop);
  }
  JumpingLoop(const JumpingLoop&) = delete;
  JumpingLoop& operator=(const JumpingLoop&) = delete;
  ~JumpingLoop() { platform::RunLoop::install(nullptr); }

  platform::PlainRunLoop& loop() { return m_loop; }
  void run(std::chrono::duration<double> time) {
    bool over = false;
    const auto timer = m_loop.scheduleRepeating(time.count(), [&] { over = true; });
    m_loop.runUntil([&] { return over; });
  }

 private:
  using Time = platform::PlainRunLoop::Time;
  void jumpTo(Time time) {
    const std::chrono::duration<double> left = time - m_now;
    m_now = time;
    m_passes(left.count());
  }

  std::function<void(double)> m_passes;
  Time m_now;
  platform::PlainRunLoop m_loop{
      {.now = [this] { return m_now; }, .sleepUntil = [this](Time time) { jumpTo(time); }}};
};

}  // namespace korvel::test
