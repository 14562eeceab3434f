// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace korvel::tools {

/// The MIDI number of a note given as such ("40") or by name ("E2", "F#2", "Eb3", with C4 = 60);
/// none for any other text or a number outside 0..127.
std::optional<int> midiNote(std::string_view text);

}  // namespace korvel::tools
