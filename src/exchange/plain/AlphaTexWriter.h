// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "export/score/Score.h"

namespace korvel::exchange {

/// The score in alphaTex: strings and frets, both voices, chord names, tempos.
std::string alphaTex(const Score& score);

}  // namespace korvel::exchange
