// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/precise/Candidate.h"
#include "analysis/precise/FrameTable.h"
#include "analysis/precise/Logistic.h"
#include "analysis/precise/OnsetIndex.h"

namespace korvel::precise {

/// Decides whether a candidate is a note, and not an overtone of another or noise.
class NoteFormula {
 public:
  /// The activations, and the spectra that they explain. All must outlive this.
  NoteFormula(const FrameTable& activations, const FrameTable& spectra, const OnsetIndex& onsets);

  double probability(const Candidate& candidate) const;

  /// What the decision rests on.
  Features<NoteFeature> features(const Candidate& candidate) const;

 private:
  bool isCovered(const Candidate& candidate) const;
  double fundamentalAt(std::size_t pitch, Frame frame) const;

  const FrameTable& m_activations;
  const FrameTable& m_spectra;
  const OnsetIndex& m_onsets;
};

}  // namespace korvel::precise
