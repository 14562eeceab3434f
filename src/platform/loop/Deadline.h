// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace korvel::platform {

/// Work of many small parts, done between the events of the user, stops for the next of them when
/// this is over. Begins when it is made.
class Deadline {
 public:
  /// Nobody sees a window wait for so long, and parts may be somewhat longer than they should.
  static constexpr std::chrono::milliseconds kWork{15};

  explicit Deadline(std::chrono::milliseconds work = kWork) : m_end(Clock::now() + work) {}
  bool isOver() const { return Clock::now() >= m_end; }

 private:
  using Clock = std::chrono::steady_clock;

  const Clock::time_point m_end;
};

}  // namespace korvel::platform
