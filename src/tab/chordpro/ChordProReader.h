// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tab/page/PageSource.h"

namespace korvel {

class QBTabMgr;

/// What a ChordPro file says.
struct ReadChordPro {
  PageSource song;  ///< In bars, as it sounds: a capo is in it.
  /// Chords that the chord book has not, each once; they were read as the next plainer ones, or not
  /// at all where they name no note.
  std::vector<std::string> unknown;
};

/// Reads a ChordPro file: what it says of the song, chords with the words below them, and grids.
/// Chords over words last a bar each, or what a directive of this program says; grids are read
/// exactly, with their repeats. A chorus that is called again comes again. Names are those of that
/// store's chord book. Files are in the letters of `platform::foreignText`. No bars where there are
/// no chords.
ReadChordPro readChordPro(const QBTabMgr& db, std::string_view file);

/// Whether a file looks like one: it has a chord in brackets, or a grid.
bool isChordPro(std::string_view file);

}  // namespace korvel
