// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text/Numerals.h"

#include "support/Testing.h"

namespace korvel::platform {
namespace {

TEST(Numerals, readTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(intValue(" \r\n+7 half tones"), 7);
  EXPECT_EQ(intValue("-3.9"), -3);
  EXPECT_EQ(doubleValue("  6036544.523794</Amp>"), 6036544.523794);
  EXPECT_EQ(doubleValue("-.5e1x"), -5.0);
  for (const char* text : {"", " ", ".", "-", "x1", "+-5", "--5", "nan", "-inf"}) {
    EXPECT_EQ(intValue(text), 0) << text;
    EXPECT_EQ(doubleValue(text), 0) << text;
  }
}

TEST(Numerals, takeTheNearestOfANumberOutOfRange) {
  EXPECT_EQ(intValue("2147483648"), std::numeric_limits<int>::max());
  EXPECT_EQ(intValue("-99999999999999999999999"), std::numeric_limits<int>::min());
  EXPECT_EQ(doubleValue("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(floatValue("-1e39"), std::numeric_limits<float>::lowest());
  EXPECT_EQ(doubleValue("1e-999"), 0);
}

TEST(Numerals, areWrittenWithSixDecimals) {
  EXPECT_EQ(decimalText(0.5), "0.500000");
  EXPECT_EQ(decimalText(std::numeric_limits<double>::lowest()).size(), 1 + 309 + 7U);
}

}  // namespace
}  // namespace korvel::platform
