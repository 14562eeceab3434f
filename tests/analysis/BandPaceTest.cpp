// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandPace.h"

#include <gtest/gtest.h>

namespace korvel {
namespace {

/// Beats of half a second or so, of which the bass drum plays every so many; something lighter
/// plays on all.
bool isTwiceAsFast(int every, double secondsOfBeat) {
  rhythm::Reading reading;
  std::vector<chords::Stroke> strokes;
  for (int beat = 0; beat < 32; ++beat) {
    const double time = beat * secondsOfBeat;
    reading.beats.push_back(time);
    strokes.push_back({time - 0.02, 1, beat % every == 1 ? 0.9F : 0.1F});
  }
  return isReadTwiceAsFast(strokes, reading);
}

TEST(BandPace, isTwiceAsFastWhereTheBassDrumGoesRoundInFourBeats) {
  EXPECT_TRUE(isTwiceAsFast(4, 0.45));
  EXPECT_FALSE(isTwiceAsFast(2, 0.45));
  EXPECT_FALSE(isTwiceAsFast(1, 0.45)) << "four to the floor";
  EXPECT_FALSE(isTwiceAsFast(3, 0.45)) << "a waltz";
  EXPECT_FALSE(isTwiceAsFast(4, 0.6)) << "half of it would be too slow";
  EXPECT_FALSE(isReadTwiceAsFast({}, {}));
}

}  // namespace
}  // namespace korvel
