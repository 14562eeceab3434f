// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel {

class QBSong;

/// The whole song as one JSON object: chords by position, tones in the hold's order, values that
/// were never set as null, amplitudes at full precision.
std::string songAsJson(QBSong& song);

/// The songs as a JSON array.
std::string songsAsJson(const std::vector<QBSong*>& songs);

}  // namespace korvel
