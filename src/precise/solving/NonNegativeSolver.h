// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "precise/solving/Dictionary.h"
#include "precise/solving/WeightedRows.h"
#include "precise/solving/WorkingSet.h"

namespace korvel::precise {

/// Explains spectra as sums of a dictionary's atoms: finds the coefficients c >= 0 that minimise
/// |x - sum of c_a atom_a|^2 / 2 + sum of penalty_a c_a, by coordinate descent over the atoms that
/// are in use or should be. Let it look at some spectra, which costs less for several together,
/// then solve them one after the other. Allocates nothing but when it is made.
class NonNegativeSolver {
 public:
  /// Spectra that are looked at together.
  static constexpr std::size_t kTogether = 4;

  /// A spectrum is solved when no coefficient would change by more than the tolerance any more, or
  /// when the rounds that are allowed are over.
  NonNegativeSolver(const Dictionary& dictionary, float tolerance);

  /// spectra: one to kTogether rows of kBins values each.
  void look(std::span<const float* const> spectra);
  /// The coefficients, one for each atom, of one of the spectra that were looked at, counted from
  /// 0. It starts from the solution before, so that similar spectra are best solved in turn. Valid
  /// until the next call.
  std::span<const float> solve(std::size_t spectrum);

 private:
  void follow(const float* likeness);
  void startAgain(const float* likeness);
  bool choose();
  void spread();

  std::size_t m_atoms;
  /// Atoms, rounded up to whole vectors.
  std::size_t m_stride;
  float m_tolerance;
  /// kBins rows of the atoms' values.
  std::vector<float> m_bins;
  /// Inner products of all atoms: m_stride rows and columns.
  std::vector<float> m_products;
  std::vector<float> m_penalties;
  /// Inner products of the spectra looked at with all atoms, and of the one solved last.
  std::vector<float> m_likeness;
  std::vector<float> m_lastLikeness;
  std::vector<float> m_solution;
  /// For each atom, how the error falls as its coefficient grows.
  std::vector<float> m_gradient;
  WorkingSet m_set;
  WeightedRows m_rows;
  int m_followed = 0;
};

}  // namespace korvel::precise
