// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace korvel::chords {

/// A single line that is heard in a band.
enum class Voice { melody, bass };

inline std::string_view nameOf(Voice voice) { return voice == Voice::melody ? "melody" : "bass"; }

inline std::optional<Voice> voiceNamed(std::string_view name) {
  for (const Voice voice : {Voice::melody, Voice::bass})
    if (nameOf(voice) == name) return voice;
  return {};
}

/// A tone of a voice.
struct VoiceNote {
  std::size_t from = 0;   ///< The place of the grid on which it is struck.
  std::size_t to = 0;     ///< The first one at which it does not sound any more.
  int pitch = 0;          ///< MIDI number, at the tuning of the recording.
  float probability = 0;  ///< That the voice has this tone there, 0..1.
};

}  // namespace korvel::chords
