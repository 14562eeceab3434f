// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

#include "platform/loop/PlainRunLoop.h"

namespace korvel::test {

/// The main run loop for the time of a test, on a clock that jumps instead of waiting.
class JumpingLoop {
 public:
  JumpingLoop() { platform::RunLoop::install(&m_loop); }
  JumpingLoop(const JumpingLoop&) = delete;
  JumpingLoop& operator=(const JumpingLoop&) = delete;
  ~JumpingLoop() { platform::RunLoop::install(nullptr); }

  platform::PlainRunLoop& loop() { return m_loop; }
  void run(std::chrono::milliseconds time) {
    bool over = false;
    const auto timer =
        m_loop.scheduleRepeating(static_cast<double>(time.count()) / 1000, [&] { over = true; });
    m_loop.runUntil([&] { return over; });
  }

 private:
  using Time = platform::PlainRunLoop::Time;
  Time m_now;
  platform::PlainRunLoop m_loop{
      {.now = [this] { return m_now; }, .sleepUntil = [this](Time time) { m_now = time; }}};
};

}  // namespace korvel::test
