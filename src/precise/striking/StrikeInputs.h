// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/PartialShares.h"

namespace korvel::precise {

/// What the network is shown of a string that may have been struck again while it rang: features of
/// the candidate, then, frame by frame around its onset, its activation, the noise of the stroke,
/// how much everything rises, and how far its partials go on as they did.
class StrikeInputs {
 public:
  static constexpr std::size_t kLevelFrames = 17;
  static constexpr std::size_t kNoiseFrames = 11;
  static constexpr std::size_t kTurnFrames = 9;
  static constexpr std::size_t kTurnGroups = kPartialGroups.size();
  /// All but the constant.
  static constexpr std::size_t kFeatures = static_cast<std::size_t>(ReattackFeature::Count) - 1;
  static constexpr std::size_t kCount =
      kFeatures + kLevelFrames + 2 * kNoiseFrames + kTurnGroups * kTurnFrames;
  using Inputs = std::array<float, kCount>;

  /// What is seen of the recording; all must outlive this. turns: see Steadiness.
  StrikeInputs(const FrameTable& activations, const FrameTable& turns, const Flux& flux)
      : m_activations(activations), m_turns(turns), m_flux(flux) {}

  Inputs of(const Candidate& candidate, const Features<ReattackFeature>& known) const;

 private:
  float activation(std::size_t pitch, Frame frame) const;

  float* addLevels(const Candidate& candidate, float* next) const;
  float* addNoise(Frame frame, float* next) const;
  float* addTurns(const Candidate& candidate, float* next) const;

  const FrameTable& m_activations;
  const FrameTable& m_turns;
  const Flux& m_flux;
};

}  // namespace korvel::precise
