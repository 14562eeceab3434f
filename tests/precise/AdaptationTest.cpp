// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/Adaptation.h"

#include "precise/solving/PluckedStrings.h"
#include "support/Testing.h"

namespace korvel::precise {
namespace {

constexpr std::size_t kPitch = 20;
constexpr std::size_t kThirdPartial = 19 * kBinsPerSemitone;

TEST(PluckedStrings, haveFourAtomsOfUnitNormForEveryPitch) {
  const Dictionary& strings = pluckedStrings();
  EXPECT_EQ(strings.size(), 4 * kPitches);
  for (std::size_t atom = 0; atom < strings.size(); ++atom) {
    const BinRow& shape = strings.shape(atom);
    double square = 0;
    for (const float value : shape) square += value * value;
    EXPECT_NEAR(square, 1, 1e-5);
    EXPECT_GT(shape[fundamentalBin(strings.pitch(atom))], 0.1F) << atom;
  }
}

// Fundamental and octave are known; what sounds is a weak fundamental and a loud third partial.
TEST(Adaptation, learnsWhatSoundsForThePitchAndItsNeighbours) {
  const std::size_t fundamental = fundamentalBin(kPitch);
  BinRow known{};
  known[fundamental] = known[fundamental + 12 * kBinsPerSemitone] = 1;
  known[fundamental + kThirdPartial] = 1;
  Dictionary dictionary;
  dictionary.add(kPitch, 0, known);
  FrameTable spectra(60, kBins);
  CoefficientTable coefficients;
  for (std::size_t t = 0; t < spectra.frames(); ++t) {
    std::ranges::fill(spectra.row(t), 0.0F);
    spectra.row(t)[fundamental] = 0.3F;
    spectra.row(t)[fundamental + kThirdPartial] = 0.4F;
    if (t % 2 == 0) coefficients.add(std::array{0.6F});
  }
  Adaptation adaptation(spectra, dictionary, coefficients, 2);
  adaptation.learn({.pitch = kPitch, .onset = 0, .end = 60}, 1);
  const Dictionary learnt = adaptation.dictionary();
  ASSERT_EQ(learnt.size(), 2 * 7 + pluckedStrings().size()) << "three neighbours on each side";
  for (std::size_t atom = 0; atom < 14; ++atom) {
    EXPECT_EQ(learnt.pitch(atom), kPitch - 3 + atom % 7);
    EXPECT_EQ(learnt.penalty(atom), 0);
    const std::size_t own = fundamentalBin(learnt.pitch(atom));
    EXPECT_NEAR(learnt.shape(atom)[own], 0.6, 1e-3);
    EXPECT_NEAR(learnt.shape(atom)[own + kThirdPartial], 0.8, 1e-3);
    EXPECT_EQ(learnt.shape(atom)[own + 12 * kBinsPerSemitone], 0) << "was not heard";
  }
  EXPECT_EQ(learnt.penalty(14), 0.3F) << "strings in general cost more";
}

}  // namespace
}  // namespace korvel::precise
