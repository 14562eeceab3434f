// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel {

class QBSong;

// Arrangements: each a new song of the same album under a free derived title, or under the title
// that is given, with its tablature drawn. std::out_of_range when there are no chords to draw, and
// the new song stays then.

/// Indexes of tones in the harmony: 3 the seventh, 4 the ninth, 5 the eleventh.
QBSong* removeOptions(QBSong& song, std::vector<int> options);
QBSong* removeOptions(QBSong& song, std::vector<int> options, const std::string& title);
QBSong* removeNonChordTones(QBSong& song);

/// Without the tones that the rest of their chord does not support.
QBSong* cleanChords(QBSong& song);
QBSong* cleanChords(QBSong& song, const std::string& title);

/// Half tones; tones that fit no string are dropped.
QBSong* transformUp(QBSong& song, int steps);
QBSong* transformDown(QBSong& song, int steps);
/// By so many half tones, down when they are negative.
QBSong* transposed(QBSong& song, int halfTones, const std::string& title);

}  // namespace korvel
