// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/precise/Candidate.h"
#include "analysis/precise/Flux.h"
#include "analysis/precise/FrameTable.h"
#include "analysis/precise/OnsetIndex.h"

namespace korvel::precise {

/// Decides whether a pitch that already sounds was struck again.
class ReattackFormula {
 public:
  /// All must outlive this.
  ReattackFormula(const FrameTable& activations, const Flux& flux, const OnsetIndex& onsets);

  /// That the candidate, a re-attack, is a note of its own. before: the onset of the candidate of
  /// the same pitch before it.
  double probability(const Candidate& candidate, Frame before) const;

 private:
  const FrameTable& m_activations;
  const Flux& m_flux;
  const OnsetIndex& m_onsets;
};

}  // namespace korvel::precise
