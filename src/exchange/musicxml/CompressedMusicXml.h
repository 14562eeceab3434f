// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "exchange/Piece.h"

namespace korvel::exchange {

/// Reads the score of a .mxl file: an archive that says itself which of its files is the score.
/// Throws a UserError that says what is wrong with it.
Piece readCompressedMusicXml(std::string_view file);

/// A MusicXML document as a .mxl file.
std::string compressedMusicXml(std::string document);

}  // namespace korvel::exchange
