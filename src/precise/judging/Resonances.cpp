// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/judging/Resonances.h"

#include <algorithm>
#include <cmath>

#include "precise/judging/Quantile.h"
#include "precise/seeing/Power.h"

namespace korvel::precise {
namespace {

/// A bin is compared with those up to half an octave away, but not with those that the same line
/// reaches.
constexpr std::ptrdiff_t kFurthest = 18;
constexpr std::ptrdiff_t kNearest = 4;
/// What stands out in all but this share of the frames is fixed.
constexpr double kShare = 0.4;
/// Above, bodies have so many resonances that they make the sound of the instrument; in Hz.
constexpr double kHighest = 400;
/// In decibels.
constexpr double kMostExcess = 20;
/// Keeps ratios of nothing in bounds.
constexpr float kTiny = 1e-3F;
/// Seconds of sound that tell nothing yet, and that tell all.
constexpr double kTooShort = 2;
constexpr double kLongEnough = 6;
/// Bins from a line to its overtones 2, 3 and 4, and how far off they may be.
constexpr std::array<std::size_t, 3> kOvertones = {36, 57, 72};
constexpr std::size_t kDetuning = 1;

/// From 1 well below the highest frequency to 0 well above it.
double countedAt(double frequency) { return 1 / (1 + std::pow(frequency / kHighest, 8)); }

/// The mean level around a bin, from the sums of all bins before each.
float around(std::span<const float> sums, std::ptrdiff_t bin) {
  const auto end = std::ssize(sums) - 1;
  const auto sumOf = [&](std::ptrdiff_t first, std::ptrdiff_t past) {
    return sums[static_cast<std::size_t>(past)] - sums[static_cast<std::size_t>(first)];
  };
  const std::ptrdiff_t low = std::max<std::ptrdiff_t>(0, bin - kFurthest);
  const std::ptrdiff_t lowEnd = std::max<std::ptrdiff_t>(0, bin - kNearest + 1);
  const std::ptrdiff_t high = std::min(end, bin + kNearest);
  const std::ptrdiff_t highEnd = std::min(end, bin + kFurthest + 1);
  return (sumOf(low, lowEnd) + sumOf(high, highEnd)) /
         static_cast<float>(lowEnd - low + highEnd - high);
}

}  // namespace

void Resonances::look(std::span<const float, kBins> levels) {
  std::array<float, kBins + 1> sums{};
  for (std::size_t k = 0; k < kBins; ++k) sums[k + 1] = sums[k] + levels[k];
  auto& ratios = m_ratios.emplace_back();
  for (std::size_t k = 0; k < kSeen; ++k)
    ratios[k] = (levels[k] + kTiny) / (around(sums, static_cast<std::ptrdiff_t>(k)) + kTiny);
}

/// The middle one of three overtones: what else is played may be one of them now and then.
double Resonances::excessOfOvertones(const Decibels& excess, std::size_t bin) const {
  std::array<double, kOvertones.size()> found{};
  for (std::size_t i = 0; i < found.size(); ++i) {
    const std::size_t centre = bin + kOvertones[i];
    for (std::size_t k = centre - kDetuning; k <= centre + kDetuning && k < kSeen; ++k)
      found[i] = std::max(found[i], excess[k]);
  }
  std::ranges::sort(found);
  return found[1];
}

platform::Slices Resonances::settle(double seconds) {
  const double sure = std::clamp((seconds - kTooShort) / (kLongEnough - kTooShort), 0.0, 1.0);
  Decibels excess{};
  std::vector<float> column(m_ratios.size());
  for (std::size_t k = 0; k < kSeen && sure > 0; ++k) {
    std::ranges::transform(m_ratios, column.begin(), [k](const auto& row) { return row[k]; });
    const double ratio = quantile(column, kShare);
    excess[k] = std::clamp(20 / kCompression * std::log10(ratio), 0.0, kMostExcess);
    co_yield static_cast<double>(k) / kSeen;
  }
  for (std::size_t k = 0; k < kSeen; ++k) {
    const double fixed = std::max(0.0, excess[k] - excessOfOvertones(excess, k));
    const double decibels = sure * fixed * countedAt(binCentre(k, kBinsPerSemitone));
    m_gains[k] = static_cast<float>(std::pow(10, -decibels / 20));
    if (decibels > 0) m_areNone = false;
  }
  m_ratios = {};
}

}  // namespace korvel::precise
