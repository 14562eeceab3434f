// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/spectrum/QBFFT.h"

#include "analysis/shelf/QBFFTGame.h"
#include "analysis/spectrum/QBFFTGuitar.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

using Samples = std::vector<double>;

/// A block of cosines whose frequencies are given in bins.
struct Partial {
  double bin;
  double level;
};

Samples blockOf(std::initializer_list<Partial> partials) {
  Samples samples(QBFFT::m_numSamples);
  for (std::size_t n = 0; n < samples.size(); ++n) {
    const double phase = 2 * std::numbers::pi * static_cast<double>(n) / 16384;
    for (const auto& [bin, level] : partials) samples[n] += level * std::cos(bin * phase);
  }
  return samples;
}

TEST(QBFFT, magnitudesAreTwiceThoseOfThePlainTransform) {
  QBFFT spectrum(blockOf({{100, 1000}, {14, 5000}, {300, 5000}}), 7);
  spectrum.fft();
  const auto amps = spectrum.amps();
  ASSERT_EQ(amps.size(), 16384U);
  // A cosine of level 1 has half the number of samples in its bin; the window takes 0.54 of that
  // and leaves 0.23 in both neighbours.
  EXPECT_NEAR(amps[100], 1000 * 0.54 * 16384, 1);
  EXPECT_NEAR(amps[99], 1000 * 0.23 * 16384, 1);
  EXPECT_NEAR(amps[299], 5000 * 0.23 * 16384, 1);
  EXPECT_NEAR(amps[200], 0, 1);
  EXPECT_EQ(amps[14], 0);
  EXPECT_EQ(amps[300], 0);
  EXPECT_EQ(spectrum.timestamp(), 7);
}

TEST(QBFFT, keepsNothingOfEarlierBlocks) {
  test::StandardStore store;
  QBFFTGuitar(blockOf({{100, 30000}}), 0).fft();
  {
    QBFFT loud(blockOf({{100, 30000}}), 0);
    loud.fft();
  }
  QBFFTGuitar brief(Samples(10, 0), 0);
  EXPECT_EQ(*std::ranges::max_element(brief.amps()), 0);
  brief.fft();
  EXPECT_EQ(*std::ranges::max_element(brief.amps()), 0);
  EXPECT_TRUE(brief.frequencies(nullptr).empty());
  EXPECT_THROW(QBFFT(Samples(16385), 0), std::out_of_range);
}

TEST(QBFFTGuitar, countsABinFromTheThresholdOn) {
  test::StandardStore store;
  const std::vector<float> tones = {110.0F, 0, 220.0F, 196.0F, 146.8F};
  const Samples amps = {0, 749999.99, 9e9, 750000.0, 800000.0, 750000.0};
  const auto found = QBFFTGuitar::pickPeaks(amps, 1, tones, nullptr);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].frequency(), 196.0F);
  EXPECT_EQ(found[1].frequency(), 220.0F);
  EXPECT_EQ(found[2].frequency(), 146.8F);
  EXPECT_EQ(found[2].amplitude(), 750000.0);
}

TEST(QBFFTGuitar, hearsTonesLoudestFirst) {
  test::StandardStore store;
  // Bin 45 stands for no tone, however loud, but the window spreads it to bin 46.
  QBFFTGuitar spectrum(blockOf({{41, 100}, {82, 300}, {45, 30000}}), 0);
  spectrum.fft();
  const auto heard = spectrum.frequencies(nullptr);
  std::vector<float> tones;
  for (const auto& frequency : heard) tones.push_back(frequency.frequency());
  EXPECT_EQ(tones, (std::vector<float>{123.5F, 220.0F, 110.0F}));
  EXPECT_EQ(spectrum.frequencies(nullptr).data(), heard.data());
}

TEST(QBFFTGame, neverHearsAnything) {
  QBFFTGame spectrum(blockOf({{41, 30000}, {82, 30000}}), nullptr, 0);
  spectrum.fft();
  EXPECT_TRUE(spectrum.frequencies(nullptr).empty());
}

}  // namespace
}  // namespace korvel
