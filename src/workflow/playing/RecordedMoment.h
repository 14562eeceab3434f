// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace korvel {

class QBSong;

/// Where a chord of a song is in its recording, and how long it is written, in seconds.
struct RecordedMoment {
  double second = 0;
  double seconds = 0;
};

/// chord: an index of the song's `allChords`. None where the chords do not follow a recording.
std::optional<RecordedMoment> momentOf(QBSong& song, int chord);

}  // namespace korvel
