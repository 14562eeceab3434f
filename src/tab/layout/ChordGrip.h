// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel {

class QBChord;

/// What a hand holds to play one chord, as it is drawn on a fretboard. A copy: later changes of the
/// chord do not reach it.
struct ChordGrip {
  struct Tone {
    int string;
    int fret;
    bool active;
    std::optional<int> finger;  ///< 1 the index, by the chord's left-hand pattern.
  };

  ChordGrip() = default;
  explicit ChordGrip(const QBChord& chord);

  bool isPlayed(int string) const;
  int highestFret() const;
  /// A character or number for each string, the lowest first, "x" where it does not sound: x02210.
  std::string shorthand() const;

  std::string name;         ///< "" for a chord without a name.
  std::vector<Tone> tones;  ///< By string, then by fret.
};

}  // namespace korvel
