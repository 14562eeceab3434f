// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/NonNegativeSolver.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "analysis/precise/VectorClones.h"

namespace korvel::precise {
namespace {

constexpr int kRounds = 20;
/// Coefficients that are looked at together.
constexpr std::size_t kLanes = 16;

inline void addScaled(float* sums, float factor, const float* row, std::size_t count) {
  for (std::size_t j = 0; j < count; ++j) sums[j] += factor * row[j];
}

/// sums[j] += factors[0] * rows[0][j] + factors[1] * rows[1][j] + ...
KORVEL_VECTOR_CLONES
void addRows(float* sums, const float* factors, std::size_t count, const float* rows,
             std::size_t stride) {
  for (std::size_t i = 0; i < count; ++i)
    if (factors[i] != 0) addScaled(sums, factors[i], rows + i * stride, stride);
}

inline float change(float coefficient, float gradient) {
  const float best = coefficient + gradient;
  return (best > 0 ? best : 0) - coefficient;
}

/// Whether any of the next kLanes coefficients is to change by more than the tolerance.
inline bool anyChange(const float* coefficients, const float* gradient, float tolerance) {
  int found = 0;
  for (std::size_t j = 0; j < kLanes; ++j)
    found |= static_cast<int>(std::fabs(change(coefficients[j], gradient[j])) > tolerance);
  return found != 0;
}

/// One round of coordinate descent, in the order of the atoms; whether anything changed.
KORVEL_VECTOR_CLONES
bool descend(float* coefficients, float* gradient, const float* products, std::size_t stride,
             float tolerance) {
  bool changed = false;
  for (std::size_t first = 0; first < stride; first += kLanes) {
    if (!anyChange(coefficients + first, gradient + first, tolerance)) continue;
    for (std::size_t j = first; j < first + kLanes; ++j) {
      const float step = change(coefficients[j], gradient[j]);
      if (std::fabs(step) <= tolerance) continue;
      coefficients[j] += step;
      addScaled(gradient, -step, products + j * stride, stride);
      changed = true;
    }
  }
  return changed;
}

}  // namespace

NonNegativeSolver::NonNegativeSolver(const Dictionary& dictionary, float tolerance)
    : m_stride((dictionary.size() + kLanes - 1) / kLanes * kLanes),
      m_tolerance(tolerance),
      m_bins(kBins * m_stride),
      m_products(m_stride * m_stride),
      m_penalties(m_stride),
      m_gradient(m_stride) {
  for (std::size_t a = 0; a < dictionary.size(); ++a) {
    m_penalties[a] = dictionary.penalty(a);
    for (std::size_t k = 0; k < kBins; ++k) m_bins[k * m_stride + a] = dictionary.shape(a)[k];
  }
  for (std::size_t a = 0; a < dictionary.size(); ++a)
    addRows(m_products.data() + a * m_stride, dictionary.shape(a).data(), kBins, m_bins.data(),
            m_stride);
}

void NonNegativeSolver::solve(std::span<const float, kBins> spectrum,
                              std::span<float> coefficients) {
  assert(coefficients.size() == m_stride);
  float* gradient = m_gradient.data();
  for (std::size_t j = 0; j < m_stride; ++j) gradient[j] = -m_penalties[j];
  addRows(gradient, spectrum.data(), kBins, m_bins.data(), m_stride);
  for (std::size_t j = 0; j < m_stride; ++j)
    if (coefficients[j] != 0)
      addScaled(gradient, -coefficients[j], m_products.data() + j * m_stride, m_stride);
  for (int round = 0; round < kRounds; ++round)
    if (!descend(coefficients.data(), gradient, m_products.data(), m_stride, m_tolerance)) break;
}

}  // namespace korvel::precise
