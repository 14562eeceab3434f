// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/NonNegativeSolver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace korvel::precise {
namespace {

using Values = std::vector<double>;

/// Solves the equations that rows, each with its right-hand side at the end, state.
Values solveEquations(std::vector<Values> rows) {
  const std::size_t size = rows.size();
  for (std::size_t i = 0; i < size; ++i) {
    const auto largest = std::max_element(
        rows.begin() + static_cast<std::ptrdiff_t>(i), rows.end(),
        [i](const Values& a, const Values& b) { return std::abs(a[i]) < std::abs(b[i]); });
    std::swap(rows[i], *largest);
    for (std::size_t j = 0; j < size; ++j) {
      if (j == i) continue;
      const double factor = rows[j][i] / rows[i][i];
      for (std::size_t k = i; k <= size; ++k) rows[j][k] -= factor * rows[i][k];
    }
  }
  Values solution;
  for (std::size_t i = 0; i < size; ++i) solution.push_back(rows[i][size] / rows[i][i]);
  return solution;
}

class Problem {
 public:
  Problem(const Dictionary& dictionary, const BinRow& spectrum)
      : m_dictionary(dictionary), m_spectrum(spectrum) {}

  double cost(const Values& coefficients) const {
    double sum = 0;
    for (std::size_t k = 0; k < kBins; ++k) {
      double rest = m_spectrum[k];
      for (std::size_t a = 0; a < m_dictionary.size(); ++a)
        rest -= coefficients[a] * m_dictionary.shape(a)[k];
      sum += rest * rest / 2;
    }
    for (std::size_t a = 0; a < m_dictionary.size(); ++a)
      sum += m_dictionary.penalty(a) * coefficients[a];
    return sum;
  }

  /// The cheapest of the unconstrained solutions for every subset of the atoms.
  Values bruteForce() const {
    Values best(m_dictionary.size());
    for (unsigned subset = 1; subset < 1U << m_dictionary.size(); ++subset) {
      const Values found = solutionFor(subset);
      if (std::ranges::min(found) >= 0 && cost(found) < cost(best)) best = found;
    }
    return best;
  }

 private:
  Values solutionFor(unsigned subset) const {
    std::vector<std::size_t> atoms;
    for (std::size_t a = 0; a < m_dictionary.size(); ++a)
      if ((subset >> a & 1U) != 0) atoms.push_back(a);
    std::vector<Values> rows;
    for (const std::size_t a : atoms) {
      rows.emplace_back();
      for (const std::size_t b : atoms) rows.back().push_back(product(a, m_dictionary.shape(b)));
      rows.back().push_back(product(a, m_spectrum) - m_dictionary.penalty(a));
    }
    const Values solved = solveEquations(rows);
    Values all(m_dictionary.size());
    for (std::size_t i = 0; i < atoms.size(); ++i) all[atoms[i]] = solved[i];
    return all;
  }

  double product(std::size_t atom, const BinRow& other) const {
    double sum = 0;
    for (std::size_t k = 0; k < kBins; ++k) sum += m_dictionary.shape(atom)[k] * other[k];
    return sum;
  }

  const Dictionary& m_dictionary;
  const BinRow& m_spectrum;
};

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

    const Problem problem(dictionary, spectrum);
    const Values expected = problem.bruteForce();
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
        if (spectra[i] != spectrum.data()) continue;
        for (std::size_t a = 0; a < dictionary.size(); ++a)
          EXPECT_NEAR(coefficients[a], expected[a], 2e-3) << round << ' ' << a << ' ' << time;
      }
    }
  }
}

}  // namespace
}  // namespace korvel::precise
