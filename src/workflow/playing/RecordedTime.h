// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "model/songs/SongTime.h"

namespace korvel {

class QBSong;

/// When what the roll of a song has at a step is heard in the song's recording. Computed once, from
/// the song as it is.
class RecordedTime {
 public:
  RecordedTime() = default;
  explicit RecordedTime(QBSong& song);

  /// Not of a song without a recording, nor of one whose chords are not in its order.
  bool isKnown() const { return m_time || m_seconds.size() > 1; }
  /// Both rise, and go on evenly outside of the song; to be asked when it is known.
  double secondsOf(double step) const;
  double stepOf(double seconds) const;

 private:
  void followChords(QBSong& song);

  std::optional<SongTime> m_time;  ///< Of a song on beats.
  std::vector<double> m_seconds;   ///< Of each chord of a song of slices, and of the end.
};

/// The first chord, by its index in `allChords`, during which the recording has far more or far
/// less than a song on beats, as where bars were taken out. None where all follows it, or nothing.
std::optional<int> firstOutOfStep(QBSong& song);

}  // namespace korvel
