// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "export/score/Score.h"

namespace korvel::exchange {

/// The score in ABC notation: the notes that sound, in both voices, chord names and tempos; it has
/// no words for strings and frets.
std::string abcNotation(const Score& score);

}  // namespace korvel::exchange
