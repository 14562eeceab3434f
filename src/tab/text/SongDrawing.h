// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/loop/Slices.h"
#include "tab/text/QBTabMatrix.h"

namespace korvel {

class QBSong;

/// The grid that `QBSong::toString` reads out. std::out_of_range for a song without chords and
/// measures.
QBTabMatrix drawingOf(QBSong& song);

/// Renews the song's `tabulature` as `QBSong::buildTab` does, a little at a time. The song keeps
/// the old text until the end. It must not get or lose chords or measures meanwhile.
platform::Slices buildingTab(QBSong& song);

}  // namespace korvel
