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

TEST(DoubleValue, readsTheNumberThatTheTextBeginsWith) {
  EXPECT_EQ(doubleValue("  6036544.523794</Amp>"), 6036544.523794);
  EXPECT_EQ(doubleValue("-.5e1x"), -5.0);
  EXPECT_EQ(floatValue("0.1"), 0.1F);
  for (const char* text : {"", " ", ".", "x1", "+-5", "nan", "-inf"})
    EXPECT_EQ(doubleValue(text), 0) << text;
}

TEST(DoubleValue, staysFiniteBeyondItsRange) {
  EXPECT_EQ(doubleValue("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(floatValue("-1e39"), std::numeric_limits<float>::lowest());
  EXPECT_EQ(doubleValue("1e-999"), 0);
  EXPECT_EQ(doubleValue("0." + std::string(400, '0') + "1"), 0);
}

TEST(DecimalText, hasSixDecimals) {
  EXPECT_EQ(decimalText(0.5), "0.500000");
  EXPECT_EQ(decimalText(std::numeric_limits<double>::lowest()).size(), 1 + 309 + 7U);
}

}  // namespace
}  // namespace korvel::platform
