// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "exchange/Piece.h"

namespace korvel::exchange {

/// Reads a standard MIDI file of format 0 or 1: a track for each channel of each of its tracks,
/// notes as they were played, to the grain; their exact seconds follow from the piece's tempos.
/// Bars follow the time signatures, 4/4 without one. Throws a UserError that says what is wrong
/// with it; a file that breaks off is read as far as it goes.
Piece readMidi(std::string_view file);

}  // namespace korvel::exchange
