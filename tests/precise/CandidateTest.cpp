// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Candidate.h"

#include "precise/judging/Choice.h"
#include "precise/judging/Company.h"
#include "precise/judging/OnsetIndex.h"
#include "support/Testing.h"

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

// Strokes at frames 20 and 60.
TEST(Choice, takesWhatIsMostProbableAtAStrokeWithoutANote) {
  Flux flux(100);
  OnsetRow magnitudes;
  for (int frame = 0; frame < 100; ++frame) {
    magnitudes.fill(frame == 21 || frame == 61 ? 1.0F : 0.01F);
    flux.add(magnitudes);
  }
  flux.settle();
  const std::vector<Candidate> candidates = {
      {.pitch = 1, .onset = 19, .end = 50, .peak = 1, .probability = 0.2},
      {.pitch = 2, .onset = 21, .end = 50, .peak = 1, .probability = 0.3},
      {.pitch = 3, .onset = 40, .end = 50, .peak = 1, .probability = 0.4},
      {.pitch = 4, .onset = 60, .end = 90, .peak = 1, .probability = 0.9},
      {.pitch = 5, .onset = 61, .end = 90, .peak = 1, .probability = 0.4},
      {.pitch = 6, .onset = 62, .end = 90, .peak = 1, .probability = 0.04},
      {.pitch = 7, .onset = 90, .end = 99, .peak = 1, .probability = 0.9}};
  const Choice choice(candidates, {0, 0, 0, 1, 0, 0, 1}, 0.5, flux);
  const auto pitches = [](const std::vector<Candidate>& found) {
    std::vector<std::size_t> all;
    for (const Candidate& candidate : found) all.push_back(candidate.pitch);
    return all;
  };
  EXPECT_EQ(pitches(choice.notes), (std::vector<std::size_t>{2, 4, 7}));
  EXPECT_EQ(pitches(choice.doubtful), (std::vector<std::size_t>{1, 3, 5}));
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
}

TEST(OnsetIndex, findsNotesWithAnOvertoneAtThePitch) {
  const std::vector<Candidate> candidates = {
      {.pitch = 5, .onset = 14, .end = 30}, {.pitch = 8, .onset = 10, .end = 30, .reattack = true}};
  const OnsetIndex index(candidates);
  EXPECT_TRUE(index.isCovered(5 + 19, 10));
  EXPECT_FALSE(index.isCovered(5 + 18, 10));
  EXPECT_FALSE(index.isCovered(5 + 19, 9));
  EXPECT_TRUE(index.isCovered(8 + 12, 10));
  EXPECT_FALSE(index.isCoveredByNew(8 + 12, 10));
}

TEST(Company, countsWhatIsProbableWhileTheCandidateSounds) {
  using enum NoteFeature;
  // The second has the first an octave below it for half its time, and a doubtful one above it.
  const std::vector<Candidate> candidates = {
      {.pitch = 3, .onset = 10, .end = 40, .peak = 2, .probability = 0.8},
      {.pitch = 15, .onset = 20, .end = 60, .peak = 1, .probability = 0.5},
      {.pitch = 27, .onset = 22, .end = 60, .peak = 0.5F, .probability = 0.1},
      {.pitch = 15, .onset = 60, .end = 80, .peak = 1, .reattack = true, .probability = 0.9},
      {.pitch = 15, .onset = 900, .end = 950, .peak = 1, .probability = 0.9}};
  Company company(candidates);
  company.meetAll().finish();
  std::vector<Features<NoteFeature>> known(candidates.size());
  for (std::size_t i = 0; i < known.size(); ++i) company.add(i, known[i]);
  EXPECT_NEAR(known[1][LikelyOctaveBelow], 0.4, 1e-9);
  EXPECT_NEAR(known[1][LikelyOctaveAbove], 0.1 * 38 / 40, 1e-9);
  EXPECT_NEAR(known[1][LikelyPolyphony], 0.4 + 0.1 * 38 / 40, 1e-9);
  EXPECT_NEAR(known[1][LikelyLouder], 0.4, 1e-9);
  EXPECT_NEAR(known[1][LikelyChord], 0.1, 1e-9);
  EXPECT_NEAR(known[1][StrengthBelow], std::log(1.65), 1e-6);
  EXPECT_NEAR(known[1][Odds], 0, 1e-9);
  // A note that goes on where the one before it ended remembers it; long after, it does not.
  EXPECT_NEAR(known[3][LikelyBefore], 0.5, 1e-9);
  EXPECT_LT(known[4][LikelyBefore], 1e-6);
  EXPECT_EQ(known[0][Texture], known[4][Texture]);
  EXPECT_NEAR(known[0][Texture],
              (30 * 0.8 + 40 * 0.5 + 38 * 0.1 + 70 * 0.9) / (10 * 0.8 + 20 + 20 * 0.6 + 70 * 0.9),
              0.05);
}

}  // namespace
}  // namespace korvel::precise
