// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/StrikeInputs.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <span>

namespace korvel::precise {
namespace {

constexpr std::array<Frame, StrikeInputs::kLevelFrames> kLevelOffsets{
    -9, -7, -5, -4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 6, 8, 10, 12};
/// Of these, the first ones, which lie before the stroke.
constexpr std::size_t kBefore = 5;
constexpr Frame kNoiseReach = StrikeInputs::kNoiseFrames / 2;
constexpr Frame kTurnReach = StrikeInputs::kTurnFrames / 2;
/// Keep ratios and logarithms of nothing in bounds.
constexpr float kSmall = 0.05F;
constexpr float kSmallNoise = 0.02F;
/// Frames from a stroke to where it is asked who sounds.
constexpr Frame kAround = 4;

}  // namespace

float StrikeInputs::activation(std::size_t pitch, Frame frame) const {
  return m_activations.rowNear(frame)[pitch];
}

/// As they are before and after the stroke.
PartialShares StrikeInputs::sharesOf(const Candidate& candidate) const {
  const auto sharesAt = [&](Frame frame) {
    return sharesOfPartials(m_activations.rowNear(frame), candidate.pitch);
  };
  PartialShares shares = sharesAt(candidate.onset - kAround);
  const PartialShares after = sharesAt(candidate.onset + kAround);
  for (std::size_t i = 0; i < shares.size(); ++i)
    shares[i] = (shares[i] + after[i]) / 2 + kSmallNoise;
  return shares;
}

/// The mean of the group's partials, each by its share.
float StrikeInputs::turn(std::size_t pitch, const PartialShares& shares, const PartialGroup& group,
                         Frame frame) const {
  const auto row = m_turns.rowNear(frame);
  float sum = 0;
  float all = 0;
  for (std::size_t i = group.begin; i < group.end; ++i) {
    const std::size_t bin = pitch + 1 + kPartials[i].distance;
    if (bin < kOnsetBins) sum += shares[i] * row[bin];
    all += shares[i];
  }
  return sum / all;
}

float* StrikeInputs::addLevels(const Candidate& candidate, float* next) const {
  float before = 0;
  for (std::size_t i = 0; i < kBefore; ++i)
    before += activation(candidate.pitch, candidate.onset + kLevelOffsets[i]) / kBefore;
  for (const Frame offset : kLevelOffsets)
    *next++ = std::log((activation(candidate.pitch, candidate.onset + offset) + kSmall) /
                       (before + kSmall));
  return next;
}

float* StrikeInputs::addNoise(Frame frame, float* next) const {
  for (Frame t = frame - kNoiseReach; t <= frame + kNoiseReach; ++t)
    *next++ = std::log(m_flux.high(t) + kSmallNoise);
  for (Frame t = frame - kNoiseReach; t <= frame + kNoiseReach; ++t)
    *next++ = std::log(m_flux.overall(t) + kSmallNoise);
  return next;
}

float* StrikeInputs::addTurns(const Candidate& candidate, float* next) const {
  const PartialShares shares = sharesOf(candidate);
  for (const PartialGroup& group : kPartialGroups)
    for (Frame offset = -kTurnReach; offset <= kTurnReach; ++offset)
      *next++ = turn(candidate.pitch, shares, group, candidate.onset + offset);
  return next;
}

StrikeInputs::Inputs StrikeInputs::of(const Candidate& candidate,
                                      const Features<ReattackFeature>& known) const {
  Inputs inputs;
  float* next = inputs.data();
  for (const double value : known.values().subspan(1)) *next++ = static_cast<float>(value);
  next = addLevels(candidate, next);
  next = addNoise(candidate.onset, next);
  next = addTurns(candidate, next);
  assert(next == inputs.data() + inputs.size());
  return inputs;
}

}  // namespace korvel::precise
