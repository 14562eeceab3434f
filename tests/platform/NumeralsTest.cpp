// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Numerals.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvel::platform {
namespace {

TEST(IntValue, readsTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(intValue("12"), 12);
  EXPECT_EQ(intValue(" \r\n+7 half tones"), 7);
  EXPECT_EQ(intValue("-3.9"), -3);
  for (const char* text : {"", " ", "x1", "-", "+-5", "--5"}) EXPECT_EQ(intValue(text), 0) << text;
}

TEST(IntValue, takesTheNearestOfANumberOutOfRange) {
  EXPECT_EQ(intValue("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(intValue("-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(intValue("99999999999999999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(intValue("-99999999999999999999999"), std::numeric_limits<int>::min());
}

}  // namespace
}  // namespace korvel::platform
