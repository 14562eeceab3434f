// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace korvel::platform {

/// The time that work of many small parts may take between two events of the user: it runs from
/// when it is made, and work stops for the next event once it is over.
class Deadline {
 public:
  /// Too short for anybody to see a window wait, also where a part takes longer than it should.
  static constexpr std::chrono::milliseconds kWork{15};

  explicit Deadline(std::chrono::milliseconds work = kWork) : m_end(Clock::now() + work) {}
  bool isOver() const { return Clock::now() >= m_end; }

 private:
  using Clock = std::chrono::steady_clock;

  const Clock::time_point m_end;
};

}  // namespace korvel::platform
