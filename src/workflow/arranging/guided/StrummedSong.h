// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

/// How a song is strummed.
struct Strumming {
  bool plain = true;     ///< Major and minor chords only.
  int halfTones = 0;     ///< Up, or down when negative; at most 11.
  int highestFret = 24;  ///< That a grip should need.
};

/// A song of the same album, under the source's title with the tags of its grips and of where it is
/// moved: in place of what is played each chord is strummed in one grip, the same wherever its name
/// comes, as loud and long as it was, in the bars of the source. Rests stay. Throws EditRefused for
/// a song of which no chord has a name or one has no grip in its tuning; what was made stays then,
/// for the caller to take back.
QBSong* strummed(QBSong& song, const Strumming& how);

}  // namespace korvel
