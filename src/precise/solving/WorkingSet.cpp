// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/WorkingSet.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cmath>

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

/// Steps for each atom, at most.
constexpr std::size_t kSteps = 20;
constexpr std::size_t kLanes = WorkingSet::kLanes;
/// The lowest bits of a step's size, which give way to the number of its atom.
constexpr std::int32_t kIndexBits = 511;

inline float change(float coefficient, float gradient) {
  const float best = coefficient + gradient;
  return (best > 0 ? best : 0) - coefficient;
}

constexpr std::size_t wholeLanes(std::size_t count) {
  return (count + kLanes - 1) / kLanes * kLanes;
}

/// Subtracts `step` times a row from the gradient; answers the atom whose coefficient is to change
/// the most then. Sizes of steps are compared as whole numbers, whose order is the same.
inline std::size_t subtract(float step, const float* __restrict row,
                            const float* __restrict coefficients, float* __restrict gradient,
                            std::int32_t count) {
  std::int32_t largest = 0;
  for (std::int32_t i = 0; i < count; ++i) {
    gradient[i] -= step * row[i];
    const float size = std::fabs(change(coefficients[i], gradient[i]));
    const std::int32_t key = (std::bit_cast<std::int32_t>(size) & ~kIndexBits) | i;
    largest = key > largest ? key : largest;
  }
  return static_cast<std::size_t>(largest & kIndexBits);
}

/// Coordinate descent over the first `count` atoms, which are followed by zeros.
KORVEL_VECTOR_CLONES
void descendSteps(float* coefficients, float* gradient, const float* products, std::size_t stride,
                  std::size_t count, float tolerance) {
  const auto width = static_cast<std::int32_t>(wholeLanes(count));
  std::size_t next = subtract(0, products, coefficients, gradient, width);
  for (std::size_t steps = kSteps * count; steps > 0; --steps) {
    const float step = change(coefficients[next], gradient[next]);
    if (std::fabs(step) <= tolerance) return;
    coefficients[next] += step;
    next = subtract(step, products + next * stride, coefficients, gradient, width);
  }
}

}  // namespace

WorkingSet::WorkingSet(const std::vector<float>& products, std::size_t stride)
    : m_allProducts(products),
      m_stride(stride),
      m_contained(stride),
      m_coefficients(stride),
      m_gradient(stride),
      m_products(stride * stride) {
  assert(stride % kLanes == 0 && stride <= kIndexBits + 1);
  m_atoms.reserve(stride);
}

void WorkingSet::clear() {
  m_atoms.clear();
  std::ranges::fill(m_contained, 0);
  std::ranges::fill(m_coefficients, 0.0F);
  std::ranges::fill(m_gradient, 0.0F);
}

void WorkingSet::add(std::size_t atom, float coefficient) {
  const std::size_t count = m_atoms.size();
  m_atoms.push_back(static_cast<std::uint32_t>(atom));
  m_contained[atom] = 1;
  m_coefficients[count] = coefficient;
  const float* all = m_allProducts.data() + atom * m_stride;
  float* row = m_products.data() + count * m_stride;
  for (std::size_t i = 0; i <= count; ++i) {
    row[i] = all[m_atoms[i]];
    m_products[i * m_stride + count] = row[i];
  }
  std::fill(row + count + 1, row + m_stride, 0.0F);
}

void WorkingSet::descend(std::span<const float> gradient, float tolerance) {
  for (std::size_t i = 0; i < size(); ++i) m_gradient[i] = gradient[m_atoms[i]];
  descendSteps(m_coefficients.data(), m_gradient.data(), m_products.data(), m_stride, size(),
               tolerance);
}

}  // namespace korvel::precise
