// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/solving/WeightedRows.h"

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

constexpr std::size_t kTogether = 4;

KORVEL_VECTOR_CLONES
void addOne(float* __restrict sums, float factor, const float* values, std::size_t count) {
  for (std::size_t j = 0; j < count; ++j) sums[j] += factor * values[j];
}

KORVEL_VECTOR_CLONES
void addFour(float* __restrict sums, const float* f, const float* a, const float* b, const float* c,
             const float* d, std::size_t count) {
  const float fa = f[0];
  const float fb = f[1];
  const float fc = f[2];
  const float fd = f[3];
  for (std::size_t j = 0; j < count; ++j)
    sums[j] = sums[j] + fa * a[j] + fb * b[j] + fc * c[j] + fd * d[j];
}

}  // namespace

void WeightedRows::addTo(float* sums, std::size_t count) const {
  std::size_t i = 0;
  for (; i + kTogether <= m_rows.size(); i += kTogether) {
    const Row* row = &m_rows[i];
    const float factors[] = {row[0].factor, row[1].factor, row[2].factor, row[3].factor};
    addFour(sums, factors, row[0].values, row[1].values, row[2].values, row[3].values, count);
  }
  for (; i < m_rows.size(); ++i) addOne(sums, m_rows[i].factor, m_rows[i].values, count);
}

}  // namespace korvel::precise
