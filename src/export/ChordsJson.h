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

/// A voice of a recording, as it is shown.
struct VoiceOfRecording {
  std::string name;  ///< "melody".
  bool isClear = false;
  struct Note {
    double from = 0;  ///< Seconds.
    double to = 0;
    int pitch = 0;           ///< MIDI number, as it sounds.
    double probability = 0;  ///< 0..1.
  };
  std::vector<Note> notes;
};

/// The chords of a recording, {"what": "band" or "guitar", "beats", "downbeats", "tempo",
/// "beatsPerBar", "compound", "swing", "key", "chords": [[start, end, "A:min7", probability,
/// "Am7/G"]]}: times in seconds; the third of a chord's values is its root and what it is by third,
/// fifth and seventh, "N" for none, the last one its whole name. Voices that were asked for follow:
/// "voices": [{"voice": "melody", "clear", "notes": [[start, end, MIDI number, probability]]}].
std::string chordsAsJson(const rhythm::Rhythm& rhythm, const std::vector<ChordOfRecording>& chords,
                         bool isBand, const std::vector<VoiceOfRecording>& voices = {});

}  // namespace korvel
