// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "exchange/Piece.h"

namespace korvel::test {

/// A piece as a few lines, places in quarters: first the head with bars, tempos and what was left,
/// then for each track its notes as "place+length pitch", with ":string/fret" where it has them.
std::string textOf(const exchange::Piece& piece);

}  // namespace korvel::test
