// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/judging/OnsetIndex.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/Smoothed.h"

namespace korvel::precise {

/// Finds what tells whether a pitch that already sounds was struck again.
class ReattackFormula {
 public:
  /// All must outlive this.
  ReattackFormula(const FrameTable& activations, const Flux& flux, const OnsetIndex& onsets);

  /// What is known of the candidate, a re-attack. before: the candidate of the same pitch that ends
  /// where it starts.
  Features<ReattackFeature> features(const Candidate& candidate, const Candidate& before) const;

 private:
  using Known = Features<ReattackFeature>;

  void addLevels(const Candidate& candidate, const Candidate& before, Known& x) const;
  void addFlux(const Candidate& candidate, Known& x) const;
  void addBounces(const Candidate& candidate, Known& x) const;
  double bounce(std::size_t pitch, Frame frame) const;
  double highestFlux(std::size_t pitch, Frame first, Frame end) const;
  float loudest(Frame frame) const;

  const FrameTable& m_activations;
  const Flux& m_flux;
  const OnsetIndex& m_onsets;
  Smoothed m_level;
};

}  // namespace korvel::precise
