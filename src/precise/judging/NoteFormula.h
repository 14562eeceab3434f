// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/judging/OnsetIndex.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"
#include "precise/seeing/Window.h"

namespace korvel::precise {

/// Finds what tells whether a candidate is a note, and not an overtone of another or noise.
class NoteFormula {
 public:
  /// The activations, and the spectra and the flux that they explain. All must outlive this.
  /// loudest: activation of the loudest pitch in each frame.
  NoteFormula(const FrameTable& activations, const FrameTable& spectra, const Flux& flux,
              const OnsetIndex& onsets, std::span<const float> loudest);

  /// What is known of the candidate by itself.
  Features<NoteFeature> features(const Candidate& candidate) const;

 private:
  using Known = Features<NoteFeature>;
  struct Attack;

  Attack attackOf(const Candidate& candidate) const;
  double meanLevel(std::size_t pitch, const Window& window) const;
  double partialLevel(std::size_t pitch, std::size_t number, const Window& window) const;
  double riseOfPartial(const Candidate& candidate, std::size_t semitones) const;

  void addLevels(const Candidate& candidate, const Attack& attack, Known& x) const;
  void addShape(const Candidate& candidate, double attackMean, Known& x) const;
  void addNeighbours(const Candidate& candidate, const Attack& attack, Known& x) const;
  void addPartials(const Candidate& candidate, const Attack& attack, Known& x) const;
  void addFlux(const Candidate& candidate, Known& x) const;

  const FrameTable& m_activations;
  const FrameTable& m_spectra;
  const Flux& m_flux;
  const OnsetIndex& m_onsets;
  Frame m_frames;
  std::span<const float> m_loudest;
};

}  // namespace korvel::precise
