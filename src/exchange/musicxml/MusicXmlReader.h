// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "exchange/Piece.h"

namespace korvel::exchange {

/// Reads a MusicXML score, partwise or timewise: a track for each part, as it sounds, with repeats
/// and jumps played out. Throws a UserError that says what is wrong with it.
Piece readMusicXml(std::string_view document);

}  // namespace korvel::exchange
