// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Tracker.h"

#include "support/Testing.h"

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

  /// The notes of the pitch, "onset-end peak", "!" before those that were struck again.
  std::string track(const std::vector<Frame>& onsets,
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
    std::ostringstream text;
    for (const Candidate& each : found)
      if (each.pitch == kPitch)
        text << (each.reattack ? "!" : "") << each.onset << '-' << each.end << ' ' << each.peak
             << "; ";
    return text.str();
  }

 private:
  FrameTable m_activations;
};

TEST(Tracker, cutsNotesWhereTheFluxRises) {
  Scene scene;
  scene.draw(kPitch, 52, 100, 1);
  scene.draw(kPitch, 100, 150, 0.1F);
  EXPECT_EQ(scene.track({50, 80}), "50-100 1; ");
}

TEST(Tracker, cutsWhatIsStruckAgain) {
  Scene scene;
  scene.draw(kPitch, 20, 70, 0.8F);
  scene.draw(kPitch, 70, 120, 1.6F);
  const std::string found = "20-69 0.8; !69-120 1.6; ";
  EXPECT_EQ(scene.track({20, 69}), found);
  // Learning needs more than a rise: a rise with a cause.
  EXPECT_EQ(scene.track({20}, kLearningNotes), "20-120 0.8; ");
  EXPECT_EQ(scene.track({20, 69}, kLearningNotes), found);
}

TEST(Tracker, cutsWhereALevelBouncesAtAStrike) {
  Scene scene;
  scene.draw(kPitch, 20, 120, 1);
  scene.draw(kPitch, 68, 71, 0.7F);
  EXPECT_EQ(scene.track({20}), "20-120 1; ");
  EXPECT_EQ(scene.track({20, 70}), "20-70 1; !70-120 1; ");
  // What would leave too short a note goes on: nothing may be lost between two candidates.
  EXPECT_EQ(scene.track({20, 24, 70}), "20-70 1; !70-120 1; ");
}

TEST(Tracker, dropsSpikesAndWhatIsFaintBesideOthers) {
  Scene scene;
  scene.draw(kPitch, 20, 21, 3);
  scene.draw(kPitch, 50, 53, 1);
  scene.draw(kPitch, 80, 120, 0.5F);
  scene.draw(kPitch + 5, 100, 150, 9);
  EXPECT_EQ(scene.track({20, 50, 80}), "80-100 0.5; ");
}

}  // namespace
}  // namespace korvel::precise
