// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/editing/Passage.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/SongTime.h"

namespace korvel::cli {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

/// How the tablature counts the bar of a chord.
std::optional<int> barOf(const QBChord& chord, bool hasPickUp) {
  if (!chord.measure()) return {};
  return chord.measure()->position() - (hasPickUp ? 1 : 0);
}

ChordIndexes chordsOfBars(QBSong& song, int from, int to) {
  const bool hasPickUp = song.isOnBeats() && SongTime(song).begin() < 0;
  const auto& chords = song.allChords();
  std::optional<ChordIndexes> found;
  int bars = 0;
  for (int i = 0; i < std::ssize(chords); ++i) {
    const auto bar = barOf(*chords[static_cast<std::size_t>(i)], hasPickUp);
    if (!bar) continue;
    bars = std::max(bars, *bar);
    if (*bar < from || *bar > to) continue;
    if (!found) found = ChordIndexes{i, i};
    found->last = i;
  }
  if (found && to <= bars) return *found;
  if (bars == 0) throw CliError(fullTitle(song) + ": is not in bars; name chords");
  throw CliError(fullTitle(song) + ": has no such bars, but bars 1 to " + std::to_string(bars));
}

}  // namespace

void addPassage(Command& command, Passage& passage) {
  Option from = command.option("--from", passage.fromBar, "First bar of the passage, from 1");
  from.wholeWithin(0, kMost).shownAs("BAR");
  command.option("--to", passage.toBar, "Last bar")
      .wholeWithin(0, kMost)
      .shownAs("BAR")
      .needs(from);
  Option first =
      command.option("--chord", passage.fromChord, "First chord of it, from 1, in place of a bar");
  first.wholeWithin(1, kMost).shownAs("POSITION").excludes(from);
  command.option("--to-chord", passage.toChord, "Last chord")
      .wholeWithin(1, kMost)
      .shownAs("POSITION")
      .needs(first);
}

ChordIndexes chordsOf(QBSong& song, const Passage& passage) {
  requireChords(song);
  if (passage.fromBar != Passage::kUntold)
    return chordsOfBars(song, passage.fromBar, std::max(passage.fromBar, passage.toBar));
  if (passage.fromChord == Passage::kUntold)
    return {0, static_cast<int>(std::ssize(song.allChords())) - 1};
  const int last = std::max(passage.fromChord, passage.toChord);
  chordAt(song, passage.fromChord);
  chordAt(song, last);
  return {passage.fromChord - 1, last - 1};
}

}  // namespace korvel::cli
