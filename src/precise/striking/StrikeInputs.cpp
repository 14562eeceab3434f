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

/// A partial in semitones above the fundamental, and about how strong it is.
struct Partial {
  std::size_t distance;
  float strength;
};
constexpr std::array<Partial, StrikeInputs::kPartialCount> kPartials{{{0, 1.0F},
                                                                      {12, 0.9F},
                                                                      {19, 0.8F},
                                                                      {24, 0.7F},
                                                                      {28, 0.5F},
                                                                      {31, 0.5F},
                                                                      {34, 0.4F},
                                                                      {36, 0.4F}}};

/// The row of the frame of the table that lies nearest.
std::span<const float> rowOf(const FrameTable& table, Frame frame) {
  const auto last = static_cast<Frame>(table.frames()) - 1;
  return table.row(static_cast<std::size_t>(std::clamp<Frame>(frame, 0, last)));
}

}  // namespace

float StrikeInputs::activation(std::size_t pitch, Frame frame) const {
  return rowOf(m_activations, frame)[pitch];
}

/// How much of a partial is likely to be the pitch's own, by what else sounds.
float StrikeInputs::shareOf(std::size_t pitch, std::size_t partial, Frame frame) const {
  const std::size_t place = pitch + kPartials[partial].distance;
  const auto row = rowOf(m_activations, frame);
  float all = kSmallNoise;
  for (const Partial& other : kPartials)
    if (place >= other.distance && place - other.distance < kPitches)
      all += other.strength * row[place - other.distance];
  return kPartials[partial].strength * row[pitch] / all;
}

StrikeInputs::Shares StrikeInputs::sharesOf(const Candidate& candidate) const {
  Shares shares;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    const float before = shareOf(candidate.pitch, i, candidate.onset - kAround);
    const float after = shareOf(candidate.pitch, i, candidate.onset + kAround);
    shares[i] = (before + after) / 2 + kSmallNoise;
  }
  return shares;
}

/// The mean of the group's partials, each by its share.
float StrikeInputs::turn(std::size_t pitch, const Shares& shares, const Group& group,
                         Frame frame) const {
  const auto row = rowOf(m_turns, frame);
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
  const Shares shares = sharesOf(candidate);
  for (const Group& group : kGroups)
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
