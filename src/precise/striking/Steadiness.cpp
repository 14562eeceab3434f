// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/Steadiness.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "precise/seeing/VectorClones.h"

namespace korvel::precise {
namespace {

/// Silence is divided by this.
constexpr float kLeast = 1e-12F;

/// A frame of `count` lines: real parts, imaginary parts, magnitudes.
struct Lines {
  const float* re;
  const float* im;
  const float* magnitudes;
};

/// What turned by an angle from the first frame to the second is foretold to turn by it again.
KORVEL_VECTOR_CLONES
void compare(const Lines& first, const Lines& second, const Lines& now, float* __restrict missed,
             float* __restrict sums, std::size_t count) {
  for (std::size_t k = 0; k < count; ++k) {
    const float turnRe = second.re[k] * first.re[k] + second.im[k] * first.im[k];
    const float turnIm = second.im[k] * first.re[k] - second.re[k] * first.im[k];
    const float scale = second.magnitudes[k] * first.magnitudes[k] + kLeast;
    const float re = (second.re[k] * turnRe - second.im[k] * turnIm) / scale - now.re[k];
    const float im = (second.re[k] * turnIm + second.im[k] * turnRe) / scale - now.im[k];
    missed[k] = std::sqrt(re * re + im * im);
    sums[k] = second.magnitudes[k] + now.magnitudes[k];
  }
}

}  // namespace

Steadiness::Steadiness(Triangles bins)
    : m_bins(std::move(bins)), m_missed(m_bins.reach()), m_sums(m_bins.reach()) {
  for (Past& past : m_past) {
    past.parts.resize(2 * m_bins.reach());
    past.magnitudes.resize(m_bins.reach());
  }
}

void Steadiness::look(std::span<const float> parts, std::span<const float> magnitudes,
                      OnsetRow& turns) {
  const std::size_t count = m_bins.reach();
  const auto linesOf = [count](const Past& past) {
    return Lines{past.parts.data(), past.parts.data() + count, past.magnitudes.data()};
  };
  const std::size_t all = magnitudes.size();
  const Lines now{parts.data(), parts.data() + all, magnitudes.data()};
  compare(linesOf(m_past[0]), linesOf(m_past[1]), now, m_missed.data(), m_sums.data(), count);
  m_bins.apply(m_missed, m_missedMeans);
  m_bins.apply(m_sums, m_sumMeans);
  for (std::size_t b = 0; b < kOnsetBins; ++b)
    turns[b] = m_missedMeans[b] / (m_sumMeans[b] + kLeast);

  std::swap(m_past[0], m_past[1]);
  std::copy_n(now.re, count, m_past[1].parts.begin());
  std::copy_n(now.im, count, m_past[1].parts.begin() + static_cast<std::ptrdiff_t>(count));
  std::copy_n(now.magnitudes, count, m_past[1].magnitudes.begin());
}

}  // namespace korvel::precise
