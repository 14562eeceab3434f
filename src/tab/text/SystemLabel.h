// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

/// Names of the open strings in the song's tuning, the highest first; "" when there is none.
std::string systemLabel(const QBSong* song);

}  // namespace korvel
