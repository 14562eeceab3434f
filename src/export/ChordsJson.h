// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "rhythm/Reading.h"

namespace korvel {

/// One chord of a recording, as it is shown.
struct ChordOfRecording {
  double from = 0;  ///< Seconds.
  double to = 0;
  std::string label;       ///< "A:min7", "N" where there is none.
  double probability = 0;  ///< 0..1.
  std::string name;        ///< "Am7/G", "-" where there is none.
};

/// The chords of a recording, {"what": "band" or "guitar", "beats", "downbeats", "tempo",
/// "beatsPerBar", "compound", "swing", "key", "chords": [[start, end, "A:min7", probability,
/// "Am7/G"]]}: times in seconds; the third of a chord's values is its root and what it is by third,
/// fifth and seventh, "N" for none, the last one its whole name.
std::string chordsAsJson(const rhythm::Rhythm& rhythm, const std::vector<ChordOfRecording>& chords,
                         bool isBand);

}  // namespace korvel
