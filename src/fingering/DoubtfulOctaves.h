// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"

namespace korvel::fingering {

/// What a note must be at least to be played for certain.
inline constexpr float kSureNote = 0.8F;

/// Notes that are hardly more than an overtone of a surer one which starts with them, and with
/// nothing else: an octave, a twelfth or two octaves above it. One of them makes a chord of a note
/// of a melody, so hands are chosen without them; they are placed afterwards, on silent strings. In
/// a chord a grip tells better whether they belong there.
class DoubtfulOctaves {
 public:
  /// Those of the notes that no one has settled.
  DoubtfulOctaves(std::span<const Note> notes, const Settled& settled);

  /// Their indices.
  std::span<const std::size_t> notes() const { return m_notes; }

 private:
  std::vector<std::size_t> m_notes;  ///< By onset.
};

}  // namespace korvel::fingering
