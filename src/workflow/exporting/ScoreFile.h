// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "export/score/Score.h"

namespace korvel {

/// A score as a MusicXML document that names this program and today's date.
std::string musicXmlOf(Score score);

/// The same in an archive, as .mxl files are.
std::string compressedMusicXmlOf(Score score);

/// A score as a file of Guitar Pro 5 that names this program.
std::string guitarPro5Of(Score score);

/// The same of Guitar Pro 7 and 8.
std::string guitarPro7Of(Score score);

/// A score in alphaTex, and in ABC notation.
std::string alphaTexOf(const Score& score);
std::string abcOf(const Score& score);

}  // namespace korvel
