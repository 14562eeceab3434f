// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tab/QBTabMatrix.h"

namespace korvel {

class QBSong;

/// The grid that `QBSong::toString` reads out. std::out_of_range for a song without chords and
/// measures.
QBTabMatrix drawingOf(QBSong& song);

}  // namespace korvel
