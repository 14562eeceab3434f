// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel::test {

/// Appends a chord as scripts have it, and names it: frets, duration, amplitudes in millions, a
/// further tone as string/fret, and "!" with a string whose tone is silenced, or for all of them;
/// "x02210*4@3,3,2,4,3+2/5!1". Duration and amplitudes are 1 unless given.
QBChord* addWritten(QBSong* song, const std::string& written);

/// As it is written, with its name in front.
std::string drawn(const QBChord& chord);
/// All chords, each followed by a blank.
std::string drawn(const QBSong& song);

}  // namespace korvel::test
