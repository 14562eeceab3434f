// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

// Notes by name, with the octave as guitarists and MIDI count it: middle C is C4.

/// The MIDI number of a note given as such ("40") or by name ("E2", "F#2", "Eb3"); none for any
/// other text or a number outside 0..127.
std::optional<int> midiNote(std::string_view text);

/// "C", "C#", "D", "Eb" ... "B" for a pitch class 0..11.
std::string_view nameOfPitchClass(int note);

/// The same as it is written in a key: "Bb" in F, "A#" in B. The key is the pitch class of the
/// tonic, 12 more in minor; any other number is no key, which leaves the names as above.
std::string_view nameInKey(int note, int key);

/// The name of a MIDI number, such as "E2".
std::string noteName(int midi);

}  // namespace korvel
