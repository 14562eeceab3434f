// SPDX-License-Identifier: GPL-3.0-or-later
#include "precise/striking/StrikeInputs.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <span>

#include "precise/striking/StruckPartials.h"

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

}  // namespace

float StrikeInputs::activation(std::size_t pitch, Frame frame) const {
  return m_activations.rowNear(frame)[pitch];
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
  const StruckPartials partials(m_activations, candidate);
  for (const PartialGroup& group : kPartialGroups)
    for (Frame offset = -kTurnReach; offset <= kTurnReach; ++offset) {
      const auto row = m_turns.rowNear(candidate.onset + offset);
      *next++ = partials.mean(group, [row](std::size_t bin) { return row[bin]; });
    }
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
