// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <string>
#include <string_view>

#include "export/score/NoteValues.h"
#include "music/NoteName.h"
#include "music/Pitch.h"

namespace korvel::exchange {

/// What follows it is written between quotation marks.
inline std::string quoted(std::string text) {
  for (char& c : text)
    if (c == '"' || c == '\\') c = '\'';
  return '"' + text + '"';
}

/// As the signature writes it that has fewest signs, as `fifthsOf` counts them: C# major is Db.
inline std::string tonicOf(const ScoreKey& key) {
  return std::string(nameInKey(key.tonic, key.tonic + (key.minor ? kNotesPerOctave : 0)));
}

/// Whether any bar has a lower voice.
inline bool hasLowerVoice(const std::vector<WrittenBar>& bars) {
  for (const WrittenBar& bar : bars)
    if (!bar.lower.empty()) return true;
  return false;
}

/// How many of a sign a whole note has: 4 for "quarter".
inline int partsOfWhole(const NoteValue& value) {
  int parts = 1;
  for (const std::string_view type :
       {"whole", "half", "quarter", "eighth", "16th", "32nd", "64th"}) {
    if (type == value.type) break;
    parts *= 2;
  }
  return parts;
}

/// The length in units that a bar has.
inline int unitsOf(const WrittenBar& bar) { return bar.pickUp ? bar.pickUp : bar.meter.units(); }

/// Beats a minute, to the nearest whole one.
inline std::string wholeBeats(double tempo) { return std::to_string(std::lround(tempo)); }

}  // namespace korvel::exchange
