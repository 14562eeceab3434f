// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tab/page/SongPage.h"

namespace korvel {

/// A page as a ChordPro file: what it says of the song, its grips, and sections: with words as
/// lines of words with chords in them, without as grids.
std::string chordProOf(const SongPage& page);

}  // namespace korvel
