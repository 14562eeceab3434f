// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "fingering/FingeringOptions.h"
#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel::fingering {

/// What a note must be at least to be played for certain.
inline constexpr float kSureNote = 0.65F;

/// Notes that are hardly more than an overtone of a surer one which starts with them, and with
/// nothing else: an octave, a twelfth or two octaves above it. One of them makes a chord of a note
/// of a melody, so hands are chosen without them; they are placed afterwards where they are in
/// nobody's way. In a chord a grip tells better whether they belong there.
class DoubtfulOctaves {
 public:
  /// Those of the notes that no one has settled.
  DoubtfulOctaves(std::span<const Note> notes, const Settled& settled);

  /// Their indices.
  std::span<const std::size_t> notes() const { return m_notes; }

  /// Gives each a string that is silent then, near what the hand holds, when there is one. The
  /// other notes have their places, none starts on a string before the one there ends.
  void place(std::span<Note> all, const OpenPitches& open, int frets) const;

 private:
  /// The notes of each string, by onset.
  using Strings = std::array<std::vector<Note*>, kStrings>;

  static Strings stringsOf(std::span<Note> all);
  static void place(Note& note, Strings& strings, const OpenPitches& open, int frets);

  std::vector<std::size_t> m_notes;  ///< By onset.
};

}  // namespace korvel::fingering
