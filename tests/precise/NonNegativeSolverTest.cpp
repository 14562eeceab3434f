// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/NonNegativeSolver.h"

#include "support/Testing.h"

namespace korvel::precise {
namespace {

/// How far a coefficient is from where the others would have it: from no other is the best one, as
/// the cost has a single lowest place.
double stepLeft(const Dictionary& dictionary, const float* spectrum,
                std::span<const float> coefficients, std::size_t atom) {
  double fall = -dictionary.penalty(atom), square = 0;
  for (std::size_t k = 0; k < kBins; ++k) {
    double rest = spectrum[k];
    for (std::size_t a = 0; a < dictionary.size(); ++a)
      rest -= coefficients[a] * dictionary.shape(a)[k];
    const double value = dictionary.shape(atom)[k];
    fall += value * rest;
    square += value * value;
  }
  const double step = fall / square;
  return coefficients[atom] > 0 ? step : std::max(step, 0.0);
}

TEST(NonNegativeSolver, findsTheCheapestExplanationWhateverCameBefore) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> uniform(0, 1);
  for (int round = 0; round < 20; ++round) {
    Dictionary dictionary;
    BinRow spectrum{};
    for (std::size_t a = 0; a < 7; ++a) {
      BinRow shape{};
      for (float& value : shape) value = std::pow(uniform(random), 6.0F);
      dictionary.add(a, a % 3 == 0 ? 0.3F : 0, shape);
      for (std::size_t k = 0; k < kBins && a % 2 == 0; ++k) spectrum[k] += shape[k];
    }
    for (float& value : spectrum) value += 0.1F * uniform(random);

    NonNegativeSolver solver(dictionary, 1e-5F);
    const BinRow silence{};
    const BinRow other = dictionary.shape(1);
    const std::array<const float*, 4> spectra = {spectrum.data(), silence.data(), other.data(),
                                                 spectrum.data()};
    // More often than the solver goes on without starting again.
    for (std::size_t time = 0; time < 10; ++time) {
      solver.look(spectra);
      for (std::size_t i = 0; i < spectra.size(); ++i) {
        const auto coefficients = solver.solve(i);
        for (std::size_t a = 0; a < dictionary.size(); ++a) {
          EXPECT_GE(coefficients[a], 0);
          EXPECT_NEAR(stepLeft(dictionary, spectra[i], coefficients, a), 0, 1e-4)
              << round << ' ' << a << ' ' << time;
        }
      }
    }
  }
}

}  // namespace
}  // namespace korvel::precise
