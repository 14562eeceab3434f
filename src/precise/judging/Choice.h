// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

#include "precise/judging/Candidate.h"
#include "precise/seeing/Flux.h"

namespace korvel::precise {

/// Which candidates are taken for notes, and which of the others are worth to be named.
struct Choice {
  /// probable: for each candidate, whether it is more probable than was asked for. threshold: the
  /// probability that was asked for. Where something was struck and nothing is probable, the most
  /// probable candidate is taken, if it is no less than three tenths of that, and one such for
  /// two that are probable: in a fast line many a note by itself is doubtful. Of more than six
  /// notes at once the weakest are not taken.
  Choice(std::span<const Candidate> candidates, const std::vector<char>& probable, double threshold,
         const Flux& flux);

  /// In the order of sortByOnset.
  std::vector<Candidate> notes;
  /// The same; of a probability of Analysis::kLeastDoubtful at least.
  std::vector<Candidate> doubtful;
};

/// Leaves out what is doubted while a note of its pitch sounds. notes: in the order of sortByOnset.
void dropWhatSoundsWith(std::span<const Candidate> notes, std::vector<Candidate>& doubtful);

}  // namespace korvel::precise
