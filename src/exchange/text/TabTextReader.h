// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "exchange/Piece.h"

namespace korvel::exchange {

/// Whether some lines of a text look like the strings of a tablature, be it one for six strings.
bool looksLikeTab(std::string_view text);

/// Reads a tablature for six strings that somebody wrote as text, or that the program did: one
/// track, frets of which count from the capo. The strings are tuned as their names or the prose
/// says. Without bar lines there are no bars.
///
/// Throws a UserError for a text without a system of six lines, such as one for a bass, and for one
/// that is larger than any tablature.
Piece readTabText(std::string_view text);

}  // namespace korvel::exchange
