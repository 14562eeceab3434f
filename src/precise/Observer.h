// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "precise/ending/EndInputs.h"
#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/striking/OnsetInputs.h"
#include "precise/striking/StrikeInputs.h"

namespace korvel::precise {

/// Is shown what the formulas of an engine decide on, for whoever fits them. What it is shown lives
/// as long as the call. Called while the engine steps, in this order.
class Observer {
 public:
  virtual ~Observer() = default;

  /// All that may be a note, in order of pitch, equal pitches by onset. Once.
  virtual void tracked(std::span<const Candidate> candidates) = 0;
  /// A candidate that starts where the one before it ends, before it may be joined to that.
  virtual void reattack(const Candidate& candidate, const StrikeInputs::Inputs& known) = 0;
  /// A candidate that was not joined to another. All is known of it, its company too; its
  /// probability is that which it has by itself.
  virtual void note(const Candidate& candidate, const Features<NoteFeature>& known) = 0;
  /// What is seen around the tracked onset of a candidate that was taken for a note.
  virtual void onset(const Candidate& note, const OnsetInputs& known) = 0;
  /// A frame in which a candidate that was taken for a note may still sound; by notes, their frames
  /// in order.
  virtual void frame(const Candidate& note, Frame frame, const EndInputs::Inputs& known) = 0;
};

}  // namespace korvel::precise
