// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {
class QBSong;
}  // namespace korvel

namespace korvel::cli {

class Command;

/// A passage of a song, by bars or by chords; all of the song when neither is told. Bars count from
/// 1 as the tablature counts them, a pick-up is 0; chords count from 1.
struct Passage {
  static constexpr int kUntold = -1;

  int fromBar = kUntold, toBar = kUntold;
  int fromChord = kUntold, toChord = kUntold;

  bool isTold() const { return fromBar != kUntold || fromChord != kUntold; }
};

/// From first to last, counted from 0.
struct ChordIndexes {
  int first = 0;
  int last = 0;
};

/// Has a command take --from and --to, bars, and --chord and --to-chord. One bar, or one chord,
/// when its end is not told.
void addPassage(Command& command, Passage& passage);

/// Throws CliError, which tells those that there are, for a bar or chord that there is none of.
ChordIndexes chordsOf(QBSong& song, const Passage& passage);

}  // namespace korvel::cli
