// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel {

class QBSong;

/// Names of the open strings in the song's tuning, the highest first; none without a tuning.
std::vector<std::string> systemLabel(const QBSong* song);

}  // namespace korvel
