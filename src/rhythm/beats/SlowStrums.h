// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

#include "fingering/Note.h"

namespace korvel::rhythm {

/// Strokes over the strings that take so long that their notes could be taken for notes of their
/// own: one string after the other in order, at an even pace, and nothing else close by.
class SlowStrums {
 public:
  /// Notes by onset; they are read as long as this lives.
  explicit SlowStrums(std::span<const fingering::Note> notes) : m_notes(notes) {}

  /// The index after the last note of the slow strum that starts with a note; that note's own
  /// index where none does.
  std::size_t endOf(std::size_t first) const;

 private:
  double gapAfter(std::size_t note) const;
  bool continues(std::size_t note, int direction) const;

  std::span<const fingering::Note> m_notes;
};

}  // namespace korvel::rhythm
