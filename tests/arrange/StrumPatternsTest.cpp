// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/strumming/StrumPatterns.h"

#include "music/Ticks.h"
#include "support/Testing.h"

namespace korvel {
namespace {

constexpr unsigned kOpenA = 0b111110;  // x02210

/// Each strike as its tick, its strings and, where they ring longer than it lasts, their ticks.
std::string strikes(const char* pattern, const HeldPart& part) {
  std::string text;
  for (const Strike& strike : strikesOf(*strumPatternNamed(pattern), part, kOpenA)) {
    if (!text.empty()) text += ' ';
    text += std::to_string(strike.tick) + ':';
    for (const Strike::String& each : strike.strings) {
      text += std::to_string(each.string);
      if (each.ticks != strike.ticks)
        text.append("(").append(std::to_string(each.ticks)).append(")");
    }
  }
  return text;
}

TEST(StrumPatternsTest, areStruckAsTheyAreWritten) {
  EXPECT_EQ(strikes("beats", {.to = 48, .begins = true}), "0:12345 12:12345 24:12345 36:12345");
  EXPECT_EQ(strikes("beats", {.beat = 5, .beattype = 4, .from = 36, .to = 60}),
            "36:12345 48:12345");
  EXPECT_EQ(strikes("bass", {.to = 48, .begins = true}),
            "0:1(48) 12:23(24)4(24)5(24) 24:2 36:2345");
  EXPECT_EQ(strikes("offbeat", {.beat = 3, .to = 36, .begins = true}), "6:2345 18:2345 30:2345");
}

TEST(StrumPatternsTest, strikeWhereAChordBegins) {
  EXPECT_EQ(strikes("none", {.from = 24, .to = 48, .begins = true}), "24:12345");
  EXPECT_EQ(strikes("none", {.from = 24, .to = 48}), "");
  EXPECT_EQ(strikes("folk", {.from = 24, .to = 48, .begins = true}),
            "24:1(12)2345 30:2345 36:1(12)2345 42:2345");
  EXPECT_EQ(strikes("charleston", {.from = 36, .to = 48, .begins = true}), "36:12345");
}

TEST(StrumPatternsTest, fitBarsOfEveryMetre) {
  for (const auto& [beat, beattype] : {std::pair(2, 4), {3, 4}, {4, 4}, {6, 8}, {9, 8}, {12, 8}}) {
    const int bar = ticksOfBar(beat, beattype);
    for (const StrumPattern& each : strumPatterns().subspan(1)) {
      const auto parts = static_cast<int>(each.bar(beat, beattype).size());
      ASSERT_GT(parts, 0) << each.name;
      EXPECT_EQ(bar % parts, 0) << each.name << ' ' << beat;
      const auto struck = strikesOf(each, {beat, beattype, 0, 0, bar, true}, kOpenA);
      EXPECT_FALSE(struck.empty()) << each.name;
    }
  }
}

}  // namespace
}  // namespace korvel
