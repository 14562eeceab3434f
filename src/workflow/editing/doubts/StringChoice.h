// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "fingering/Note.h"
#include "music/Neck.h"

namespace korvel {

/// On which strings notes are played that come between others which stay where they are.
struct StringChoice {
  /// Where a hand would play the note, given all that sounds around it; -1 if it is not known.
  int wished = -1;
  /// The fret about which the notes around it are played.
  double hand = 0;
  /// Frets of the note by strings, -1 where the string does not have it.
  std::array<int, kStrings> frets{};

  /// The best string of those that are free; none if the note is on none of them.
  std::optional<int> best(const std::array<bool, kStrings>& isFree) const;
};

/// The choice for each new note. fixed: notes with string and fret, by onset, as are the new ones.
std::vector<StringChoice> stringChoices(std::span<const fingering::Note> fixed,
                                        std::span<const fingering::Note> added,
                                        const OpenPitches& open, int capo);

}  // namespace korvel
