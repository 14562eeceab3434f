// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/ReattackFormula.h"

#include <algorithm>
#include <cmath>

#include "precise/seeing/Window.h"

namespace korvel::precise {
namespace {

/// Keep ratios and logarithms of nothing in bounds.
constexpr double kTiny = 0.001;
constexpr double kSmall = 0.05;
/// Re-attacks this soon after the onset before, in seconds, are mostly the same note.
constexpr double kSoon = 0.15;
/// Pitches that reach this after the strike sound, and a bounce of this is a full one.
constexpr float kSounding = 0.25F;
constexpr double kFullBounce = 0.3;
/// Frames in which a string that is struck again dips, and has bounced back, from the strike on.
constexpr Window kDip{-3, 3};
constexpr Window kBack{1, 7};

}  // namespace

ReattackFormula::ReattackFormula(const FrameTable& activations, const Flux& flux,
                                 const OnsetIndex& onsets)
    : m_activations(activations), m_flux(flux), m_onsets(onsets), m_level(activations) {}

double ReattackFormula::bounce(std::size_t pitch, Frame frame) const {
  if (pitch >= kPitches) return 0;
  const float low = m_level.lowest(pitch, frame + kDip.begin, frame + kDip.end);
  const float high = m_level.highest(pitch, frame + kBack.begin, frame + kBack.end);
  return std::max(high - low, 0.0F);
}

double ReattackFormula::highestFlux(std::size_t pitch, Frame first, Frame end) const {
  float found = 0;
  for (Frame t = first; t < end; ++t) found = std::max(found, m_flux.of(pitch, t));
  return found;
}

float ReattackFormula::loudest(Frame frame) const {
  float found = 0;
  for (std::size_t p = 0; p < kPitches; ++p) found = std::max(found, m_level(p, frame));
  return found;
}

/// What the activation of the pitch does around the strike.
void ReattackFormula::addLevels(const Candidate& candidate, const Candidate& before,
                                Known& x) const {
  using enum ReattackFeature;
  const Frame t = candidate.onset;
  const std::size_t p = candidate.pitch;
  const auto level = [&](Frame frame) -> double {
    return m_activations.row(static_cast<std::size_t>(frame))[p];
  };
  const auto frames = static_cast<Frame>(m_activations.frames());
  const double high = largest(window(t + 3, t + 10, frames), level);
  const double low = largest(window(t - 7, t - 1, frames), level) + kTiny;
  const double earlier = mean(window(t - 12, t - 3, frames), level) + kTiny;
  x[Level] = std::log(high + kTiny);
  x[Ratio] = std::log((high + kTiny) / low);
  x[Rise] = high - low;
  x[RatioToBefore] = std::log((high + kTiny) / earlier);
  x[FluxShare] = std::log(candidate.flux / (high + kTiny) + 0.01);

  const double dip = m_level.lowest(p, t + kDip.begin, t + kDip.end);
  const double back = m_level.highest(p, t + kBack.begin, t + kBack.end);
  x[Bounce] = bounce(p, t);
  x[BounceRatio] = std::log((back + kTiny) / (dip + kSmall));
  x[Drop] = std::log((m_level.highest(p, t - 8, t - 2) + kSmall) / (dip + kSmall));
  x[LevelShare] = std::log(back / (loudest(std::min(t + 3, frames - 1)) + kTiny) + 0.02);
  x[Remainder] =
      std::log((m_level(p, std::max<Frame>(0, t - 4)) + kSmall) / (before.peak + kSmall));
}

void ReattackFormula::addFlux(const Candidate& candidate, Known& x) const {
  using enum ReattackFeature;
  const Frame t = candidate.onset;
  const std::size_t p = candidate.pitch;
  const Window near{t - 1, t + 2};
  const auto rise = [&](std::size_t bin) {
    return largest(near, [&](Frame frame) { return m_flux.at(bin, frame); });
  };
  x[Flux] = std::log(candidate.flux + 0.01);
  x[FundamentalFlux] = std::log(rise(p + 1) + 0.01);
  x[OctaveFlux] = std::log(rise(p + 13) + 0.01);
  x[FluxToBefore] = std::log(candidate.flux / (highestFlux(p, t - 14, t - 4) + kSmall));
  x[FluxToAfter] = std::log(candidate.flux / (highestFlux(p, t + 5, t + 15) + kSmall));
  const double overall =
      largest(Window{t - 2, t + 3}, [&](Frame frame) { return m_flux.overall(frame); });
  x[Overall] = std::log(overall + 0.02);
  x[StrongestRise] = std::log(m_flux.strongest(t) + 0.02);
}

/// Whether other pitches are struck as well.
void ReattackFormula::addBounces(const Candidate& candidate, Known& x) const {
  using enum ReattackFeature;
  const Frame t = candidate.onset;
  const std::size_t p = candidate.pitch;
  double bounces = 0;
  double others = 0;
  for (std::size_t q = 0; q < kPitches; ++q) {
    if (q == p || m_level.highest(q, t, t + 7) <= kSounding) continue;
    bounces += std::min(1.0, bounce(q, t) / kFullBounce);
    ++others;
  }
  x[BounceOfOthers] = bounces / std::max(1.0, others);
  x[Others] = others / 6;
  // Below the lowest pitch, the unsigned difference is far above the highest one.
  x[BounceOctaveBelow] = bounce(p - 12, t);
  x[BounceOctaveAbove] = bounce(p + 12, t);
  x[BounceTwelfth] = std::max(bounce(p - 19, t), bounce(p + 19, t));
  x[BounceBeside] = std::max(bounce(p - 1, t), bounce(p + 1, t));
}

Features<ReattackFeature> ReattackFormula::features(const Candidate& candidate,
                                                    const Candidate& before) const {
  using enum ReattackFeature;
  constexpr double kShortest = 3;
  const Frame t = candidate.onset;
  const double gap = static_cast<double>(t - before.onset) / kFramesPerSecond;
  const double length = static_cast<double>(candidate.end - t);
  Known x;
  addLevels(candidate, before, x);
  addFlux(candidate, x);
  addBounces(candidate, x);
  x[Gap] = std::log(std::max(gap, 0.05));
  x[Soon] = gap < kSoon ? 1 : 0;
  x[Length] = std::log(std::max(length, kShortest) / kFramesPerSecond);
  x[Neighbours] = std::log(1 + static_cast<double>(m_onsets.count(t)));
  x[NewNeighbours] = std::log(1 + static_cast<double>(m_onsets.countNew(t)));
  x[Covered] = m_onsets.isCoveredByNew(candidate.pitch, t) ? 1 : 0;
  x[Pitch] = centredPitch(candidate.pitch);
  return x;
}

}  // namespace korvel::precise
