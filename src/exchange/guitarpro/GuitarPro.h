// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "exchange/Piece.h"

namespace korvel {
struct Score;
}

namespace korvel::exchange {

/// A file of Guitar Pro 3 to 8 (.gp3, .gp4, .gp5, .gpx, .gp); the bytes tell which. Repeats,
/// endings and directions are played out, tied notes are one, dead notes and ornaments are counted
/// as left out. Throws a platform::UserError that says what is wrong with the file.
Piece readGuitarPro(std::string_view bytes);

/// The score as a file of Guitar Pro 5 (.gp5).
std::string guitarPro5(const Score& score);

/// The score as a file of Guitar Pro 7 and 8 (.gp).
std::string guitarPro7(const Score& score);

}  // namespace korvel::exchange
