// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/bands/BandPace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace korvel {
namespace {

constexpr double kSlowestTwice = 110;  ///< Beats a minute; half of less is no band's tempo.
constexpr std::size_t kFewestBeats = 16;
constexpr double kAtBeat = 0.05;  ///< Seconds.
/// Halves of how much a beat's bass drum differs from that two beats later, in means of all beats.
/// Of 75 generated pieces those that were read right have .14 at most, those twice as fast .56.
constexpr double kLeastContrast = 0.35;

constexpr std::size_t kRound = 4;
using Round = std::array<double, kRound>;

double bassDrumAt(std::span<const chords::Stroke> strokes, double seconds) {
  const auto first =
      std::ranges::lower_bound(strokes, seconds - kAtBeat, {}, &chords::Stroke::time);
  float most = 0;
  for (auto stroke = first; stroke != strokes.end() && stroke->time < seconds + kAtBeat; ++stroke)
    most = std::max(most, stroke->low);
  return static_cast<double>(most);
}

Round roundOf(std::span<const chords::Stroke> strokes, std::span<const double> beats) {
  Round sums{};
  for (std::size_t i = 0; i < beats.size(); ++i) sums[i % kRound] += bassDrumAt(strokes, beats[i]);
  return sums;
}

}  // namespace

bool isReadTwiceAsFast(std::span<const chords::Stroke> strokes, const rhythm::Reading& reading) {
  if (reading.tempo() < kSlowestTwice || reading.beats.size() < kFewestBeats) return false;
  const std::size_t rounds = reading.beats.size() / kRound;
  const Round drums = roundOf(strokes, std::span(reading.beats).first(rounds * kRound));
  const double mean = std::accumulate(drums.begin(), drums.end(), 0.0) / kRound;
  const double contrast =
      std::max(std::abs(drums[0] - drums[2]), std::abs(drums[1] - drums[3])) / 2;
  return mean > 0 && contrast > kLeastContrast * mean;
}

}  // namespace korvel
