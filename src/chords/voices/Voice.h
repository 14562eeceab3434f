// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::chords {

/// A single line that is heard in a band.
enum class Voice { melody, bass };
using Voices = std::vector<Voice>;

/// "melody" or "bass".
std::string_view nameOf(Voice voice);
/// "melody,bass"; empty for no voices.
std::string namesOf(const Voices& voices);
/// By such names in any order, each voice once; none when one of the names is no voice's.
std::optional<Voices> voicesNamed(std::string_view names);

/// A tone of a voice.
struct VoiceNote {
  std::size_t from = 0;   ///< The place of the grid on which it is struck.
  std::size_t to = 0;     ///< The first one at which it does not sound any more.
  int pitch = 0;          ///< MIDI number, at the tuning of the recording.
  float probability = 0;  ///< That the voice has this tone there, 0..1.
};

}  // namespace korvel::chords
