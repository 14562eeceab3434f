// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under the title that is given, with its tablature
// drawn. std::out_of_range when there are no chords to draw, and the new song stays then.

/// Without the tones that the rest of their chord does not support.
QBSong* cleanChords(QBSong& song, const std::string& title);

/// By so many half tones, down when they are negative; tones that fit no string are dropped.
QBSong* transposed(QBSong& song, int halfTones, const std::string& title);

}  // namespace korvel
