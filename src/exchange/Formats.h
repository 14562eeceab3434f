// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/Piece.h"

namespace korvel::exchange {

enum class Format { tabText, midi, musicXml, compressedMusicXml, guitarPro };

/// What the bytes of a file are, and by the end of its name where they leave it open; none for what
/// is of no such format, such as a recording. The first 64 KiB are enough but for an archive.
std::optional<Format> formatOf(std::string_view bytes, std::string_view name);

/// The same of a file, of which no more is read than that needs. None, too, for a format that has
/// no reader, and for what cannot be read at all.
std::optional<Format> formatOfFile(const std::string& file);

/// How names of files end that have a reader, in small letters and without the dot, such as "gp5".
std::vector<std::string_view> endingsOfPieces();

/// Whether a file is called as if it had such a reader, whatever is in it.
bool isNamedAsPiece(std::string_view name);

/// Whether a file is called as programs for tabs and scores call theirs that have no reader, as of
/// ABC notation.
bool isNamedAsUnread(std::string_view name);

/// Larger files are no music that somebody wrote.
inline constexpr std::size_t kMostMebibytes = 32;

/// Reads a file of another program. Throws FileError, and a UserError that names the file and says
/// what is wrong with it.
Piece readPiece(const std::string& file);

}  // namespace korvel::exchange
