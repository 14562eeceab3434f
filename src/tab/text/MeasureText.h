// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBMeasure;
class QBSong;
class QBTabMatrix;

/// Draws the measure as a system of its own, with marks where the song's playback loop is; none
/// without a song.
void addToTabulatureWithLineBreak(QBMeasure& measure, const QBSong* song, QBTabMatrix& matrix);

}  // namespace korvel
