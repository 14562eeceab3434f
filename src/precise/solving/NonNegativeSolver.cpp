// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/NonNegativeSolver.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

/// How often new atoms may come into use for one spectrum.
constexpr int kChoices = 8;
/// From this number on, atoms that went out of use are dropped.
constexpr std::size_t kMany = 80;
/// The gradient is computed anew after so many spectra, so that rounding does not add up.
constexpr int kFollowed = 32;
constexpr std::size_t kLanes = WorkingSet::kLanes;
constexpr std::size_t kTogether = NonNegativeSolver::kTogether;
/// Bins that are multiplied in one go through the sums.
constexpr std::size_t kBinsTogether = 4;
static_assert(kTogether == 4 && kBins % kBinsTogether == 0);

/// Adds rows[0] * x[0] + ... + rows[3] * x[3] for each of four x.
inline void addRows(const float* const* x, const float* __restrict rows, std::size_t stride,
                    float* __restrict s0, float* __restrict s1, float* __restrict s2,
                    float* __restrict s3) {
  const float* a = rows;
  const float* b = a + stride;
  const float* c = b + stride;
  const float* d = c + stride;
  const float x0[] = {x[0][0], x[0][1], x[0][2], x[0][3]};
  const float x1[] = {x[1][0], x[1][1], x[1][2], x[1][3]};
  const float x2[] = {x[2][0], x[2][1], x[2][2], x[2][3]};
  const float x3[] = {x[3][0], x[3][1], x[3][2], x[3][3]};
  for (std::size_t j = 0; j < stride; ++j) {
    s0[j] = s0[j] + x0[0] * a[j] + x0[1] * b[j] + x0[2] * c[j] + x0[3] * d[j];
    s1[j] = s1[j] + x1[0] * a[j] + x1[1] * b[j] + x1[2] * c[j] + x1[3] * d[j];
    s2[j] = s2[j] + x2[0] * a[j] + x2[1] * b[j] + x2[2] * c[j] + x2[3] * d[j];
    s3[j] = s3[j] + x3[0] * a[j] + x3[1] * b[j] + x3[2] * c[j] + x3[3] * d[j];
  }
}

/// sums: for each of four spectra, `stride` inner products with the columns of `rows`. Everything
/// that is read serves several sums, which are gone through once for several bins.
KORVEL_VECTOR_CLONES
void multiply(const float* const* spectra, const float* rows, std::size_t stride, float* sums) {
  std::fill_n(sums, kTogether * stride, 0.0F);
  for (std::size_t k = 0; k < kBins; k += kBinsTogether) {
    const float* const x[] = {spectra[0] + k, spectra[1] + k, spectra[2] + k, spectra[3] + k};
    addRows(x, rows + k * stride, stride, sums, sums + stride, sums + 2 * stride,
            sums + 3 * stride);
  }
}

KORVEL_VECTOR_CLONES
void addDifference(float* sums, const float* values, const float* others, std::size_t count) {
  for (std::size_t j = 0; j < count; ++j) sums[j] += values[j] - others[j];
}

inline bool anyAbove(const float* values, float bound) {
  int found = 0;
  for (std::size_t j = 0; j < kLanes; ++j) found |= static_cast<int>(values[j] > bound);
  return found != 0;
}

/// The first vector from `first` on with a value above the bound, or `count`.
KORVEL_VECTOR_CLONES
std::size_t nextAbove(const float* values, std::size_t first, std::size_t count, float bound) {
  while (first < count && !anyAbove(values + first, bound)) first += kLanes;
  return first;
}

}  // namespace

NonNegativeSolver::NonNegativeSolver(const Dictionary& dictionary, float tolerance)
    : m_atoms(dictionary.size()),
      m_stride((m_atoms + kLanes - 1) / kLanes * kLanes),
      m_tolerance(tolerance),
      m_bins(kBins * m_stride),
      m_products(m_stride * m_stride),
      m_penalties(m_stride),
      m_likeness(kTogether * m_stride),
      m_lastLikeness(m_stride),
      m_solution(m_stride),
      m_gradient(m_stride),
      m_set(m_products, m_stride) {
  for (std::size_t a = 0; a < m_atoms; ++a) {
    m_penalties[a] = dictionary.penalty(a);
    m_gradient[a] = -m_penalties[a];
    for (std::size_t k = 0; k < kBins; ++k) m_bins[k * m_stride + a] = dictionary.shape(a)[k];
  }
  for (std::size_t a = 0; a < m_atoms; a += kTogether) {
    std::array<const float*, kTogether> shapes{};
    const std::size_t count = std::min(kTogether, m_atoms - a);
    for (std::size_t i = 0; i < count; ++i) shapes[i] = dictionary.shape(a + i).data();
    look(std::span(shapes).first(count));
    std::copy_n(m_likeness.data(), count * m_stride, m_products.data() + a * m_stride);
  }
}

void NonNegativeSolver::look(std::span<const float* const> spectra) {
  assert(!spectra.empty() && spectra.size() <= kTogether);
  std::array<const float*, kTogether> rows;
  rows.fill(spectra.front());
  std::ranges::copy(spectra, rows.begin());
  multiply(rows.data(), m_bins.data(), m_stride, m_likeness.data());
}

/// Takes the gradient from the spectrum solved last to this one.
void NonNegativeSolver::follow(const float* likeness) {
  addDifference(m_gradient.data(), likeness, m_lastLikeness.data(), m_stride);
}

void NonNegativeSolver::startAgain(const float* likeness) {
  m_followed = 0;
  m_set.clear();
  for (std::size_t j = 0; j < m_stride; ++j) m_gradient[j] = likeness[j] - m_penalties[j];
  m_rows.clear();
  for (std::size_t j = 0; j < m_stride; ++j) {
    if (m_solution[j] == 0) continue;
    m_set.add(j, m_solution[j]);
    m_rows.collect(-m_solution[j], m_products.data() + j * m_stride);
  }
  m_rows.addTo(m_gradient.data(), m_stride);
}

/// Adds the atoms that should come into use; whether there are any.
bool NonNegativeSolver::choose() {
  const std::size_t before = m_set.size();
  for (std::size_t first = 0; first < m_stride; first += kLanes) {
    first = nextAbove(m_gradient.data(), first, m_stride, m_tolerance);
    for (std::size_t j = first; j < std::min(first + kLanes, m_stride); ++j)
      if (m_gradient[j] > m_tolerance && !m_set.contains(j)) m_set.add(j, 0);
  }
  return m_set.size() > before;
}

/// Takes over what the working set found.
void NonNegativeSolver::spread() {
  m_rows.clear();
  for (std::size_t i = 0; i < m_set.size(); ++i) {
    const std::size_t atom = m_set.atoms()[i];
    const float step = m_set.coefficients()[i] - m_solution[atom];
    if (step == 0) continue;
    m_solution[atom] = m_set.coefficients()[i];
    m_rows.collect(-step, m_products.data() + atom * m_stride);
  }
  m_rows.addTo(m_gradient.data(), m_stride);
}

std::span<const float> NonNegativeSolver::solve(std::size_t spectrum) {
  const float* likeness = m_likeness.data() + spectrum * m_stride;
  if (m_set.size() < kMany && ++m_followed < kFollowed)
    follow(likeness);
  else
    startAgain(likeness);
  std::copy_n(likeness, m_stride, m_lastLikeness.begin());
  for (int choice = 0; choice < kChoices; ++choice) {
    if (!choose() && choice > 0) break;
    m_set.descend(m_gradient, m_tolerance);
    spread();
  }
  return std::span(m_solution).first(m_atoms);
}

}  // namespace korvel::precise
