// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/seeing/Levels.h"

#include "precise/judging/Quantile.h"
#include "precise/seeing/Power.h"
#include "support/Testing.h"

namespace korvel::precise {
namespace {

TEST(Compress, isAPowerForAllSizes) {
  std::vector<float> values = {0, 1e-36F};
  for (float value = 1e-25F; value < 1e25F; value *= 1.0137F) values.push_back(value);
  std::vector<float> found = values;
  compress(found);
  EXPECT_EQ(found[0], 0);
  EXPECT_EQ(found[1], 0);
  for (std::size_t i = 2; i < values.size(); ++i)
    ASSERT_NEAR(found[i] / std::pow(values[i], kCompression), 1, 3e-6) << values[i];
}

TEST(Quantile, interpolatesBetweenValues) {
  std::vector<float> values = {5, 1, 4, 2, 3};
  EXPECT_EQ(quantile(values, 0), 1);
  EXPECT_EQ(quantile(values, 0.5), 3);
  EXPECT_FLOAT_EQ(quantile(values, 0.9), 4.6F);
  EXPECT_EQ(quantile(values, 1), 5);
  EXPECT_EQ(quantile({}, 0.5), 0);
}

TEST(Levels, subtractTheBackgroundAndScaleToTheLoudest) {
  constexpr std::size_t kA = 96;  // 440 Hz
  FrameTable spectra(400, kBins);
  for (std::size_t t = 0; t < spectra.frames(); ++t) {
    std::ranges::fill(spectra.row(t), 0.01F);
    if (t >= 200) spectra.row(t)[kA] = 0.51F;
  }
  // One loud bin of all the time is a note, no background.
  for (std::size_t t = 0; t < spectra.frames(); ++t) spectra.row(t)[kA + 40] = 0.05F;
  Levels levels;
  levels.measure(spectra, 0.1).finish();
  EXPECT_NEAR(levels.ref(), 0.5, 1e-4);
  levels.apply(spectra.row(0).first<kBins>());
  levels.apply(spectra.row(300).first<kBins>());
  EXPECT_EQ(spectra.row(0)[kA], 0);
  EXPECT_NEAR(spectra.row(300)[kA], 1, 1e-4);
  const double higher = std::pow(0.04 / 0.5, 0.4) * std::pow(std::exp2(40.0 / 36), 0.25);
  EXPECT_NEAR(spectra.row(0)[kA + 40], higher, 1e-3);
}

}  // namespace
}  // namespace korvel::precise
