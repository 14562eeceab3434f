// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/precise/ReattackFormula.h"

#include <algorithm>
#include <cmath>

#include "analysis/precise/Logistic.h"
#include "analysis/precise/Window.h"

namespace korvel::precise {
namespace {

/// Keeps ratios and logarithms of nothing in bounds.
constexpr double kTiny = 0.001;
/// Re-attacks this soon after the onset before, in seconds, are mostly the same note.
constexpr double kSoon = 0.15;

}  // namespace

ReattackFormula::ReattackFormula(const FrameTable& activations, const Flux& flux,
                                 const OnsetIndex& onsets)
    : m_activations(activations), m_flux(flux), m_onsets(onsets) {}

double ReattackFormula::probability(const Candidate& candidate, Frame before) const {
  using enum ReattackFeature;
  const Frame t = candidate.onset;
  const auto level = [&](Frame frame) -> double {
    return m_activations.row(static_cast<std::size_t>(frame))[candidate.pitch];
  };
  const auto frames = static_cast<Frame>(m_activations.frames());
  const double high = largest(window(t + 3, t + 10, frames), level);
  const double low = largest(window(t - 7, t - 1, frames), level) + kTiny;
  const double earlier = mean(window(t - 12, t - 3, frames), level) + kTiny;
  const double gap = static_cast<double>(t - before) / kFramesPerSecond;
  const double overall =
      largest(window(t - 2, t + 3, frames), [&](Frame frame) { return m_flux.overall(frame); });

  Features<ReattackFeature> x;
  x[Level] = std::log(high + kTiny);
  x[Ratio] = std::log((high + kTiny) / low);
  x[Rise] = high - low;
  x[RatioToBefore] = std::log((high + kTiny) / earlier);
  x[Flux] = std::log(candidate.flux + 0.01);
  x[FluxShare] = std::log(candidate.flux / (high + kTiny) + 0.01);
  x[Gap] = std::log(std::max(gap, 0.05));
  x[Neighbours] = std::log(1 + static_cast<double>(m_onsets.count(t)));
  x[NewNeighbours] = std::log(1 + static_cast<double>(m_onsets.countNew(t)));
  x[Overall] = std::log(overall + 0.02);
  x[Pitch] = centredPitch(candidate.pitch);
  x[Soon] = gap < kSoon ? 1 : 0;
  return logistic(reattackTerms(), x);
}

}  // namespace korvel::precise
