// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "precise/judging/Candidate.h"
#include "precise/seeing/Window.h"
#include "precise/striking/OnsetInputs.h"

namespace korvel::precise {

/// Decides when notes begin: of the frames around the tracked onset, where networks find it most
/// probable. What notes share overtones with, and rooms, make onsets seem earlier or later.
class NoteOnsets {
 public:
  /// notes: those that were taken, in the order of sortByOnset, as they were tracked.
  explicit NoteOnsets(std::span<const Candidate> notes);

  /// Where note i begins. Notes of one pitch keep their order, and none gets shorter than a few
  /// frames.
  Frame onsetOf(std::size_t i, const OnsetInputs& known) const;

 private:
  std::span<const Candidate> m_notes;
  std::vector<Window> m_allowed;  ///< By note.
};

}  // namespace korvel::precise
