// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Resonances.h"

#include "support/Testing.h"

namespace korvel::precise {
namespace {

/// Each overtone is a little fainter than the one below it.
void addNote(BinRow& levels, std::size_t bin) {
  float level = 0.6F;
  for (const std::size_t overtone : {0U, 36U, 57U, 72U, 84U, 93U, 101U, 108U}) {
    for (std::size_t k = bin + overtone - 1; k <= bin + overtone + 1 && k < kBins; ++k)
      levels[k] += level;
    level *= 0.9F;
  }
}

/// Notes all over the neck; what stands out besides comes from `add`.
template <class Add>
BinRow gainsOf(double seconds, const Add& add) {
  Resonances resonances;
  for (std::size_t i = 0; i < 90; ++i) {
    BinRow levels;
    levels.fill(0.05F);
    addNote(levels, 3 * (i * 7 % 40 + 1));
    add(levels);
    resonances.look(levels);
  }
  resonances.settle(seconds).finish();
  return resonances.gains();
}

TEST(Resonances, areWhatStandsOutWithoutOvertones) {
  constexpr std::size_t kBody = 20;
  constexpr std::size_t kDrone = 40;
  constexpr std::size_t kHigh = 140;  // Too high for a body: 1 kHz.
  const auto sound = [](BinRow& levels) {
    for (std::size_t k = kBody - 1; k <= kBody + 1; ++k) levels[k] += 0.5F;
    addNote(levels, kDrone);
    levels[kHigh] += 0.5F;
  };
  const BinRow gains = gainsOf(20, sound);
  EXPECT_LT(gains[kBody], 0.3F);
  EXPECT_GT(gains[kDrone], 0.9F) << "what is played all the time is a note";
  EXPECT_GT(gains[kHigh], 0.9F);
  EXPECT_GT(gainsOf(4, sound)[kBody], gains[kBody]) << "of a short recording little is known";
  EXPECT_EQ(gainsOf(1, sound)[kBody], 1);
}

}  // namespace
}  // namespace korvel::precise
