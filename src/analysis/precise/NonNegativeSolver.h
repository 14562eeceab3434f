// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "analysis/precise/Dictionary.h"

namespace korvel::precise {

/// Explains spectra as sums of a dictionary's atoms: finds the coefficients c >= 0 that minimise
/// |x - sum of c_a atom_a|^2 / 2 + sum of penalty_a c_a, by cyclic coordinate descent.
class NonNegativeSolver {
 public:
  /// No change of a coefficient in the last round over all is larger than the tolerance, but for
  /// spectra that are not done after 20 rounds.
  NonNegativeSolver(const Dictionary& dictionary, float tolerance);

  /// Coefficients to start with.
  std::vector<float> zeros() const { return std::vector<float>(m_stride); }
  /// coefficients: what to start from, best the solution of a similar spectrum, and the answer: one
  /// for each atom, followed by zeros. Allocates nothing.
  void solve(std::span<const float, kBins> spectrum, std::span<float> coefficients);

 private:
  /// Atoms, rounded up to whole vectors.
  std::size_t m_stride;
  float m_tolerance;
  /// kBins rows of the atoms' values.
  std::vector<float> m_bins;
  /// Inner products of all atoms: m_stride rows and columns.
  std::vector<float> m_products;
  std::vector<float> m_penalties;
  /// For each atom, how the error falls as its coefficient grows.
  std::vector<float> m_gradient;
};

}  // namespace korvel::precise
