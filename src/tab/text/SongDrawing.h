// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/loop/Slices.h"
#include "tab/text/QBTabMatrix.h"

namespace korvel {

class QBSong;

// The text tablature of a song: by measures when there are any, else chord by chord. A song that is
// not whole says so at its end.
// NoChords, a std::out_of_range, for a song without chords and measures.

/// With marks where the song's playback loop is.
std::string toString(QBSong& song);
/// The same without the marks of the playback loop.
std::string toStringForExport(QBSong& song);
std::string toStringByMeasures(QBSong& song);

/// The grid that `toString` reads out. Where chords are drawn without measures, systems end at the
/// width, in columns.
QBTabMatrix drawingOf(QBSong& song, int width = kWidthOfSystem);

/// Says below the last system of a song that is not whole that its end is missing.
void markEnd(QBTabMatrix& matrix, const QBSong& song);

/// Renews the song's `tabulature`.
void buildTab(QBSong& song);
/// The same, a little at a time. The song keeps the old text until the end. It must not get or lose
/// chords or measures meanwhile.
platform::Slices buildingTab(QBSong& song);

/// Writes the text for export as UTF-8; write errors are ignored and the answer is always true.
bool tofile(QBSong& song, const std::string& path);

}  // namespace korvel
