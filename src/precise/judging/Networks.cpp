// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Networks.h"

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {

KORVEL_VECTOR_CLONES
void addUp(const float* cells, std::size_t count, const float* weights, float* __restrict sums,
           std::size_t width) {
  for (std::size_t i = 0; i < count; ++i)
    for (std::size_t k = 0; k < width; ++k) sums[k] += cells[i] * weights[i * width + k];
}

}  // namespace korvel::precise
