// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/Candidate.h"

#include <gtest/gtest.h>

#include <vector>

#include "analysis/precise/OnsetIndex.h"

namespace korvel::precise {
namespace {

TEST(Candidates, keepTheSixStrongestThatSoundTogether) {
  std::vector<Candidate> candidates;
  for (std::size_t i = 0; i < 7; ++i)
    candidates.push_back({.pitch = i,
                          .onset = static_cast<Frame>(i),
                          .end = 100,
                          .peak = i == 3 ? 0.5F : 1 + static_cast<float>(i)});
  // Weaker, but while it is compared the others have ended or not begun.
  candidates.push_back({.pitch = 9, .onset = 94, .end = 120, .peak = 0.1F});
  candidates.push_back({.pitch = 8, .onset = 93, .end = 120, .peak = 0.1F});
  sortByOnset(candidates);
  keepSixStrongest(candidates);
  std::vector<std::size_t> kept;
  for (const Candidate& candidate : candidates) kept.push_back(candidate.pitch);
  EXPECT_EQ(kept, (std::vector<std::size_t>{0, 1, 2, 4, 5, 6, 9}));
}

TEST(OnsetIndex, countsWhatStartsWithinFourFrames) {
  const std::vector<Candidate> candidates = {{.pitch = 5, .onset = 14, .end = 30},
                                             {.pitch = 7, .onset = 10, .end = 30, .reattack = true},
                                             {.pitch = 7, .onset = 6, .end = 10},
                                             {.pitch = 9, .onset = 15, .end = 30},
                                             {.pitch = 9, .onset = 5, .end = 15}};
  const OnsetIndex index(candidates);
  EXPECT_EQ(index.count(10), 3U);
  EXPECT_EQ(index.countNew(10), 2U);
  EXPECT_TRUE(index.contains(5, 10));
  EXPECT_FALSE(index.contains(9, 10));
  EXPECT_FALSE(index.contains(8, 10));
}

}  // namespace
}  // namespace korvel::precise
