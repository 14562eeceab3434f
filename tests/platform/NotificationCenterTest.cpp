// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/loop/NotificationCenter.h"

#include "support/Testing.h"

namespace korvel::platform {
namespace {

TEST(NotificationCenter, aHandlerMayEndItselfAndOthers) {
  NotificationCenter center;
  std::string told;
  std::unique_ptr<NotificationCenter::Observer> second;
  auto first = center.observe("done", [&] {
    told += "1";
    second.reset();
  });
  second = center.observe("done", [&] { told += "2"; });
  const auto third = center.observe("done", [&] {
    told += "3";
    first.reset();
  });
  center.post("other");
  center.post("done");
  center.post("done");
  EXPECT_EQ(told, "133");
}

}  // namespace
}  // namespace korvel::platform
