// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "export/score/Score.h"

namespace korvel::exchange::guitarpro {

/// The names of a score's chords where they change, as a player writes them.
class ScoreNames {
 public:
  /// Names are those of the shapes behind a capo at that fret.
  explicit ScoreNames(const Score& score, int capo = 0);

  /// What is written above an event of the first voice; to be asked of one after the other.
  std::optional<std::string> above(const ScoreEvent& event);

 private:
  int m_capo;
  std::optional<ScoreKey> m_key;          ///< Of the shapes.
  std::optional<ScoreHarmony> m_harmony;  ///< The one that counts.
};

}  // namespace korvel::exchange::guitarpro
