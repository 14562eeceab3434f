// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstdint>

#include "platform/sound/QueueBuffer.h"

namespace korvel {

/// The clock that live time stamps are held against.
class QBTimeMgr {
 public:
  using Clock = std::chrono::system_clock;

  /// Time of day as seconds x 1000 + microseconds within the second.
  static std::uint64_t currentMicroseconds(Clock::time_point now = Clock::now());
  /// Whether the time stamp is less than 1000 of these units old; one of the future is not.
  static bool isValid(const platform::AudioTimeStamp& time, Clock::time_point now = Clock::now());
};

}  // namespace korvel
