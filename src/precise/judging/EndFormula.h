// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/judging/Observer.h"
#include "precise/seeing/FrameTable.h"
#include "precise/solving/Smoothed.h"

namespace korvel::precise {

/// Decides when notes end. A level says little: a string that was stopped goes on to ring in the
/// room, and one that rings faintly under others is still heard. So each frame is judged by how the
/// level moves around it, how it fell since the stroke, and what was struck since then, and the
/// note ends where that makes all of its frames most probable.
class EndFormula {
 public:
  /// notes: those that were taken, in the order of sortByOnset, with the ends that were tracked.
  /// loudest: the largest activation of each frame. observer: is shown what is decided on, or null.
  /// gains: what the bins were multiplied by, as they resonate. All must outlive this.
  EndFormula(const FrameTable& activations, std::span<const float> loudest,
             std::span<const Candidate> notes, const BinRow& gains, Observer* observer);

  /// Where note i ends, up to half a second after it was tracked to end, but before the next one of
  /// its pitch begins.
  Frame endOf(std::size_t i) const;

 private:
  using Known = Features<EndFeature>;
  /// What was seen of a note up to a frame.
  struct Past;

  Frame limitOf(std::size_t i) const;
  void addLevels(const Candidate& note, Frame frame, const Past& past, Known& x) const;
  double level(std::size_t pitch, Frame frame) const;
  double fall(std::size_t pitch, Frame from, Frame to) const;
  void pass(std::size_t i, Frame frame, Past& past) const;

  const FrameTable& m_activations;
  Smoothed m_level;
  std::span<const float> m_loudest;
  std::span<const Candidate> m_notes;
  const BinRow& m_gains;
  Observer* m_observer;
  double m_texture = 0;  ///< The mean number of notes that sound while any does.
};

}  // namespace korvel::precise
