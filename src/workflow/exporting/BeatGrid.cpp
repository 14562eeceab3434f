// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/BeatGrid.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <utility>

namespace korvel {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
/// One octave of tempi: of two that differ by a factor of two only one can be meant.
constexpr double kSlowest = 70;
constexpr double kFastest = 140;
constexpr double kCoarseStep = 0.5;
/// Gaps are compared within so many seconds, in which a player's tempo holds.
constexpr double kReach = 2;
/// The least mean fit of a tempo; below it the onsets keep no time.
constexpr double kLeastFit = 0.35;
/// Onsets that are looked at: some minutes, over which a constant tempo may still be one.
constexpr std::size_t kEnough = 2000;
constexpr double kFineShare = 0.01;
constexpr int kFineSteps = 400;

double secondsOfSixteenth(double tempo) { return BeatGrid{tempo, 0}.secondsOfSixteenth(); }

/// How well a gap is a whole number of sixteenths, and by preference of eighths and quarters: 1 at
/// best.
double fit(double gap, double sixteenth) {
  const double phase = kTurn * gap / sixteenth;
  return (std::cos(phase) + std::cos(phase / 2) / 2 + std::cos(phase / 4) / 4) / 1.75;
}

double meanFit(std::span<const double> onsets, double tempo) {
  const double sixteenth = secondsOfSixteenth(tempo);
  double sum = 0;
  int gaps = 0;
  for (std::size_t i = 0; i < onsets.size(); ++i)
    for (std::size_t j = i + 1; j < onsets.size() && onsets[j] - onsets[i] <= kReach; ++j, ++gaps)
      sum += fit(onsets[j] - onsets[i], sixteenth);
  return gaps > 0 ? sum / gaps : 0;
}

/// Its length says how well the onsets lie on the sixteenths, its angle where those lie.
std::complex<double> phaseSum(std::span<const double> onsets, double tempo) {
  const double turns = kTurn / secondsOfSixteenth(tempo);
  std::complex<double> sum;
  for (const double onset : onsets) sum += std::polar(1.0, turns * onset);
  return sum;
}

template <class Score>
double bestTempo(double from, double to, double step, const Score& score) {
  std::pair best(score(from), from);
  const int steps = static_cast<int>((to - from) / step);
  for (int i = 1; i <= steps; ++i) {
    const double tempo = from + i * step;
    best = std::max(best, std::pair(score(tempo), tempo));
  }
  return best.second;
}

}  // namespace

double assumedTempo(std::span<const double> onsets) {
  onsets = onsets.first(std::min(onsets.size(), kEnough));
  const auto local = [&](double tempo) { return meanFit(onsets, tempo); };
  const double coarse = bestTempo(kSlowest, kFastest, kCoarseStep, local);
  if (local(coarse) < kLeastFit) return kTempoWithoutBeat;
  // Over minutes a hundredth of the tempo is many sixteenths.
  const auto whole = [&](double tempo) { return std::abs(phaseSum(onsets, tempo)); };
  const double reach = coarse * kFineShare;
  return bestTempo(coarse - reach, coarse + reach, 2 * reach / kFineSteps, whole);
}

BeatGrid gridOf(std::span<const double> onsets, double tempo) {
  const double angle = std::arg(phaseSum(onsets, tempo));
  return {tempo, angle / kTurn * secondsOfSixteenth(tempo)};
}

}  // namespace korvel
