// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <utility>

#include "platform/loop/Slices.h"
#include "precise/judging/Candidate.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/Adaptation.h"
#include "precise/solving/CoefficientTable.h"
#include "precise/solving/Dictionary.h"

namespace korvel::precise {

class NonNegativeSolver;

/// How strongly each pitch sounds in each frame of a recording: every frame explained as a sum of
/// known spectra, at first of plucked strings in general. Solve, find notes in the activations,
/// learn from them, and solve again.
class Explanation {
 public:
  /// The spectra must outlive this.
  explicit Explanation(const FrameTable& spectra);

  /// Explains enough of the frames to learn from; the others sound as the one before them.
  platform::Slices solveQuickly();
  /// Explains every frame. What is learnt from is given back.
  platform::Slices solveFully();

  /// Replaces the spectra that frames are explained by with what the notes tell of the instrument;
  /// after solveQuickly. known: what earlier windows of a long recording have told; becomes what is
  /// known now. Both must outlive the work.
  platform::Slices learn(std::span<const Candidate> notes, Adaptation::Sound& known);

  /// A row of all pitches for each frame.
  const FrameTable& activations() const { return m_activations; }
  FrameTable takeActivations() { return std::move(m_activations); }

 private:
  platform::Slices solve(std::size_t step);
  void lookAhead(NonNegativeSolver& solver, std::size_t frame, std::size_t step) const;
  float shareAtAttack(const Candidate& note) const;

  const FrameTable& m_spectra;
  Dictionary m_dictionary;
  CoefficientTable m_coefficients;
  FrameTable m_activations;
};

}  // namespace korvel::precise
