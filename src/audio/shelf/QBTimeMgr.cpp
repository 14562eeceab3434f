// SPDX-License-Identifier: GPL-3.0-or-later
#include "audio/shelf/QBTimeMgr.h"

namespace korvel {

// The units are mixed on purpose: host times that are compared with it are made in the same way.
std::uint64_t QBTimeMgr::currentMicroseconds(Clock::time_point now) {
  using namespace std::chrono;
  const auto time = duration_cast<microseconds>(now.time_since_epoch());
  const auto whole = floor<seconds>(time);
  return static_cast<std::uint64_t>(whole.count() * 1000 + (time - whole).count());
}

bool QBTimeMgr::isValid(const platform::AudioTimeStamp& time, Clock::time_point now) {
  return currentMicroseconds(now) - time.hostTime < 1000;
}

}  // namespace korvel
