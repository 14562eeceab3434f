// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Tracker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace korvel::precise {
namespace {

constexpr std::size_t kFrames = 200;
constexpr std::size_t kPitch = 10;

/// Activations that are drawn, and sound whose partials rise at given frames.
class Scene {
 public:
  Scene() : m_activations(kFrames, kPitches) {
    for (std::size_t t = 0; t < kFrames; ++t) std::ranges::fill(m_activations.row(t), 0.0F);
  }

  void draw(std::size_t pitch, std::size_t first, std::size_t end, float level) {
    for (std::size_t t = first; t < end; ++t) m_activations.row(t)[pitch] = level;
  }

  std::vector<Candidate> track(const std::vector<Frame>& onsets,
                               const TrackerSettings& settings = kCandidateNotes) const {
    Flux flux(kFrames);
    std::array<float, kOnsetBins> magnitudes{};
    for (std::size_t t = 0; t < kFrames; ++t) {
      // The rise of a frame is seen in the next one.
      const bool rises = std::ranges::count(onsets, static_cast<Frame>(t) - 1) > 0;
      magnitudes.fill(0);
      magnitudes[kPitch + 1] = rises ? 1.0F : 0.1F;
      flux.add(magnitudes);
    }
    flux.settle();
    std::vector<Candidate> found;
    Tracker(m_activations, flux, settings).track(found).finish();
    std::erase_if(found, [](const Candidate& each) { return each.pitch != kPitch; });
    return found;
  }

 private:
  FrameTable m_activations;
};

TEST(Tracker, cutsNotesWhereTheFluxRises) {
  Scene scene;
  scene.draw(kPitch, 52, 100, 1);
  scene.draw(kPitch, 100, 150, 0.1F);
  const auto found = scene.track({50, 80});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].onset, 50);
  EXPECT_EQ(found[0].end, 100);
  EXPECT_EQ(found[0].peak, 1);
  EXPECT_FALSE(found[0].reattack);
}

TEST(Tracker, cutsWhatIsStruckAgain) {
  Scene scene;
  scene.draw(kPitch, 20, 70, 0.8F);
  scene.draw(kPitch, 70, 120, 1.6F);
  const auto found = scene.track({20, 69});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].onset, 20);
  EXPECT_EQ(found[0].end, 69);
  EXPECT_TRUE(found[1].reattack);
  EXPECT_EQ(found[1].onset, 69);
  EXPECT_EQ(found[1].end, 120);
  EXPECT_EQ(found[1].peak, 1.6F);
  // Learning needs more than a rise: a rise with a cause.
  EXPECT_EQ(scene.track({20}, kLearningNotes).size(), 1U);
  EXPECT_EQ(scene.track({20, 69}, kLearningNotes).size(), 2U);
}

TEST(Tracker, cutsWhereALevelBouncesAtAStrike) {
  Scene scene;
  scene.draw(kPitch, 20, 120, 1);
  scene.draw(kPitch, 68, 71, 0.7F);
  EXPECT_EQ(scene.track({20}).size(), 1U);
  const auto found = scene.track({20, 70});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_TRUE(found[1].reattack);
  EXPECT_EQ(found[1].onset, 70);
  // What would leave too short a note goes on: nothing may be lost between two candidates.
  EXPECT_EQ(scene.track({20, 24, 70}).front().end, 70);
}

TEST(Tracker, dropsSpikesAndWhatIsFaintBesideOthers) {
  Scene scene;
  scene.draw(kPitch, 20, 21, 3);
  scene.draw(kPitch, 50, 53, 1);
  scene.draw(kPitch, 80, 120, 0.5F);
  scene.draw(kPitch + 5, 100, 150, 9);
  const auto found = scene.track({20, 50, 80});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].onset, 80);
  EXPECT_EQ(found[0].end, 100);
}

}  // namespace
}  // namespace korvel::precise
