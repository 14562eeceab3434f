// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/LocalTime.h"

#include <array>
#include <ctime>

namespace korvel::platform {

std::string localTime(const char* format) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), format, &local)};
}

}  // namespace korvel::platform
