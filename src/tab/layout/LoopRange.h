// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class QBSong;

/// The positions of the chords at the ends of a song's playback loop, -1 where an end is not set.
struct LoopRange {
  int from = -1;
  int to = -1;

  LoopRange() = default;
  /// A null song has no loop.
  explicit LoopRange(const QBSong* song);

  bool contains(int position) const { return from <= position && position <= to; }
  bool isSet() const { return from != -1 && to != -1; }
};

/// A run of chords by their indexes in the song's `allChords`, -1 where an end is not set.
struct ChordSpan {
  int first = -1;
  int last = -1;

  bool contains(int chord) const { return first >= 0 && first <= chord && chord <= last; }
};

/// The loop of a song. An end whose chord is gone is not set.
ChordSpan loopOf(QBSong& song);

}  // namespace korvel
