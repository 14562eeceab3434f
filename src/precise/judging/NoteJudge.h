// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"
#include "precise/seeing/Flux.h"
#include "precise/seeing/FrameTable.h"

namespace korvel::precise {

class Observer;

/// Finds how probable it is that each candidate is a note: first each by itself, then each in the
/// company of what is probable beside it.
class NoteJudge {
 public:
  /// What the candidates were cut out of.
  struct Seen {
    const FrameTable& activations;
    const FrameTable& spectra;
    const Flux& flux;
  };

  /// What was seen, and the observer if there is one, must outlive this. threshold: the
  /// probability that is asked for.
  NoteJudge(const Seen& seen, double threshold, Observer* observer);

  /// Gives each candidate its probability. To be called once; they must outlive the work.
  platform::Slices judge(std::span<Candidate> candidates);

  /// For each candidate that was judged, whether it is more probable than was asked for.
  const std::vector<char>& probable() const { return m_probable; }
  /// Activation of the loudest pitch in each frame.
  std::span<const float> loudest() const { return m_loudest; }

 private:
  platform::Slices findLoudest();
  platform::Slices judgeEach(std::span<Candidate> candidates);
  platform::Slices judgeInCompany(std::span<Candidate> candidates);
  bool isProbable(double byItself, double inCompany, const Features<NoteFeature>& known) const;

  Seen m_seen;
  double m_threshold;
  Observer* m_observer;
  std::vector<Features<NoteFeature>> m_known;  ///< Of each candidate.
  std::vector<char> m_probable;
  std::vector<float> m_loudest;
};

}  // namespace korvel::precise
