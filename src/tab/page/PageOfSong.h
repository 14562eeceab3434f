// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

class QBSong;

/// The chords of a song, with its words. A chord without a name goes on with the one before, unless
/// nothing sounds for a whole bar.
PageSource pageSourceOf(QBSong& song);

/// The ticks at which the chords of a song begin, as its page counts them and its words are placed
/// by, and that of its end.
std::vector<int> ticksOfChords(QBSong& song);

}  // namespace korvel
