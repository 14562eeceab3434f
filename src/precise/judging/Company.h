// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "platform/loop/Slices.h"
#include "precise/judging/Candidate.h"
#include "precise/judging/Logistic.h"

namespace korvel::precise {

/// What a candidate sounds with, weighted by how probable it is that they are notes: an octave
/// below a sure note means more than one below a doubtful one, and a line of single notes makes
/// any second voice doubtful.
class Company {
 public:
  /// The candidates with the probability that each has by itself.
  explicit Company(std::span<const Candidate> candidates);

  /// Finds who sounds with whom; before anything is asked.
  platform::Slices meetAll();

  /// Completes what is known of candidate i.
  void add(std::size_t i, Features<NoteFeature>& known) const;

 private:
  /// What sounds with one candidate. Companions count by their probability times the share of the
  /// candidate's time in which they sound too.
  struct Companions {
    double octaveBelow = 0;
    double octaveAbove = 0;
    double farBelow = 0;
    double farAbove = 0;
    double beside = 0;
    /// Sums: of all, of louder ones, and of the probabilities of those that start together with it.
    double all = 0;
    double louder = 0;
    double together = 0;
    /// The strongest, and the strongest an octave away.
    double strongest = 0;
    double strengthAbove = 0;
    double strengthBelow = 0;
    /// The one of its pitch before it; counts less the longer ago it ended.
    double before = 0;
  };

  void meet(std::size_t i, std::size_t other);
  std::vector<std::size_t> inOrder() const;
  void findTexture();

  std::span<const Candidate> m_candidates;
  std::vector<Companions> m_companions;
  /// The mean number of notes that sound while any does.
  double m_texture = 0;
};

/// How probable it is that a candidate is a note, by all that is known of it and its company: what
/// the formula says, corrected by small networks; see NoteWeights.
double probabilityInCompany(const Features<NoteFeature>& known);

}  // namespace korvel::precise
