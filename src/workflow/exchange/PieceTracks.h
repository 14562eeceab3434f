// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/text/UserText.h"

namespace korvel {

namespace exchange {
struct Piece;
struct Track;
}  // namespace exchange

// Which track of a file becomes a song.

/// The one of that number, counted from 1, or of that name; without a wish the first guitar that
/// plays, and without guitars what has most notes and is no drums. UserError where there is none.
std::size_t chosenTrack(const exchange::Piece& piece, const std::optional<std::string>& wish);

/// How many guitars play in it.
std::size_t countOfGuitars(const exchange::Piece& piece);

/// Whether its places are on a neck of six strings, or on none that the file names.
bool isForSixStrings(const exchange::Track& track);

/// "2 Lead Guitar"; a track without a name has its number alone.
std::string numberedName(const exchange::Piece& piece, std::size_t track);
/// The same of all tracks, each with what it has: "2 Lead Guitar: 6 strings, 512 notes".
std::vector<platform::UserText> linesOfTracks(const exchange::Piece& piece);

}  // namespace korvel
