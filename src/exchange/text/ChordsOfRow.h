// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "exchange/text/TextRows.h"

namespace korvel::exchange {

/// Whether a row has names of chords, and besides them nothing but numbers of bars and signs.
bool isRowOfChords(const Row& row);

/// The names of such a row and their columns. "N.C." is an empty name.
std::vector<std::pair<std::size_t, std::string>> chordsOfRow(const Row& row);

}  // namespace korvel::exchange
