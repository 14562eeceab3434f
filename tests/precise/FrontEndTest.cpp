// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/FrontEnd.h"

#include "precise/seeing/Flux.h"
#include "precise/seeing/Tuning.h"
#include "support/Testing.h"

namespace korvel::precise {
namespace {

/// Half a second of silence and half a second of a sine of amplitude 1.
Recording sineAt(double frequency) {
  std::vector<float> samples(static_cast<std::size_t>(kRate));
  for (std::size_t i = samples.size() / 2; i < samples.size(); ++i)
    samples[i] = static_cast<float>(
        std::sin(2 * std::numbers::pi * frequency * static_cast<double>(i) / kRate));
  Recording recording;
  recording.add(samples);
  recording.finish();
  return recording;
}

template <std::size_t Size>
std::size_t loudest(const std::array<float, Size>& bins) {
  return static_cast<std::size_t>(std::ranges::max_element(bins) - bins.begin());
}

TEST(FrontEnd, showsEveryPitchInItsBinAtItsLevel) {
  for (const double tuning : {0.0, 30.0}) {
    FrontEnd frontEnd(tuning);
    for (std::size_t pitch = 0; pitch < kPitches; pitch += 3) {
      const double midi = static_cast<double>(pitch) + Analysis::kLowestPitch + tuning / 100;
      const Recording recording = sineAt(hertzOfNote(midi));
      frontEnd.look(recording, 64);
      for (const std::size_t which : {0U, 1U}) {
        const BinRow& bins = frontEnd.spectrum(which);
        EXPECT_EQ(loudest(bins), fundamentalBin(pitch)) << midi;
        EXPECT_GT(bins[fundamentalBin(pitch)], 0.3) << midi;
        EXPECT_LT(bins[fundamentalBin(pitch)], 1) << midi;
        EXPECT_TRUE(pitch <= 20 || loudest(frontEnd.onsetSpectrum(which)) == pitch + 1) << midi;
      }
      frontEnd.look(recording, 10);
      EXPECT_LT(std::ranges::max(frontEnd.spectrum(0)), 1e-6) << midi;
    }
  }
}

TEST(FrontEnd, seesHighPitchesStartLaterThanLowOnes) {
  FrontEnd frontEnd(0);
  // The long window reaches 93 ms ahead, the middle one 46 ms. The frame is the second of its pair,
  // which must take nothing from the other.
  const auto levelBefore = [&](std::size_t pitch, Frame frames) {
    const auto onset = static_cast<Frame>(kRate / 2) / static_cast<Frame>(kHop);
    frontEnd.look(sineAt(hertzOfNote(static_cast<double>(pitch) + Analysis::kLowestPitch)),
                  onset - frames - 1);
    return frontEnd.spectrum(1)[fundamentalBin(pitch)];
  };
  EXPECT_GT(levelBefore(8, 5), 1e-3);
  EXPECT_LT(levelBefore(45, 5), 1e-5);
  EXPECT_GT(levelBefore(45, 2), 1e-3);
}

// A partial that rings goes on as it did, until its phase jumps: its level need not change.
TEST(FrontEnd, seesWhereWhatRingsIsStruckAgain) {
  constexpr std::size_t kPitch = 30;
  std::vector<float> samples(static_cast<std::size_t>(2 * kRate));
  const double step = 2 * std::numbers::pi * hertzOfNote(kPitch + Analysis::kLowestPitch) / kRate;
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] = static_cast<float>(std::sin(step * static_cast<double>(i) +
                                             (i < samples.size() / 2 ? 0 : std::numbers::pi / 2)));
  Recording recording;
  recording.add(samples);
  recording.finish();
  FrontEnd frontEnd(0);
  for (Frame t = 0; t < 160; t += 2) {
    frontEnd.look(recording, t);
    const float turn = frontEnd.turns(0)[kPitch + 1];
    const Frame away = std::abs(t - 86);
    EXPECT_TRUE(away > 1 || turn > 0.1F) << t;
    EXPECT_TRUE(t < 10 || away < 10 || turn < 0.01F) << t;
  }
}

TEST(Tuning, isFoundWithinTwoCents) {
  for (const double cents : {-45.0, -20.0, 0.0, 20.0, 45.0}) {
    std::vector<float> sound(static_cast<std::size_t>(kRate));
    for (const double midi : {52.0, 59.0, 64.0})
      for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] +=
            static_cast<float>(std::sin(2 * std::numbers::pi * hertzOfNote(midi + cents / 100) *
                                        static_cast<double>(i) / kRate));
    SampleStore samples;
    samples.append(sound);
    Tuning tuning;
    for (std::size_t i = 0; i < Tuning::windows(sound.size()); i += 2) tuning.look(samples, i);
    EXPECT_NEAR(tuning.offset(), cents, 2);
  }
  EXPECT_EQ(Tuning().offset(), 0) << "nothing sounds";
  EXPECT_EQ(Tuning::nearest(-30, 0), -30);
  EXPECT_EQ(Tuning::nearest(-1, -101), -101) << "A = 415 Hz";
  EXPECT_EQ(Tuning::nearest(48, -40), -52);
}

TEST(Flux, risesWhereAPitchBeginsWhateverTheLevel) {
  constexpr std::size_t kPitch = 20;
  for (const float level : {1e-4F, 1.0F, 1e4F}) {
    Flux flux(60);
    for (int frame = 0; frame < 60; ++frame) {
      OnsetRow magnitudes;
      magnitudes.fill(0.01F * level);
      // From here on the pitch rings, with its octave; a rise is seen in the next frame.
      if (frame > 30) magnitudes[kPitch + 1] = magnitudes[kPitch + 13] = level;
      flux.add(magnitudes);
    }
    flux.settle();
    for (Frame frame = 4; frame < 62; ++frame) {
      const bool begins = frame == 30 || frame == 31;
      EXPECT_NEAR(flux.of(kPitch, frame), begins ? 0.9 + 0.9 * 0.9 : 0, 0.01) << frame;
      EXPECT_NEAR(flux.strongest(frame), begins ? 0.9 : 0, 0.01) << frame;
    }
    EXPECT_NEAR(flux.of(kPitch + 5, 30), 0, 0.01);
  }
}

}  // namespace
}  // namespace korvel::precise
