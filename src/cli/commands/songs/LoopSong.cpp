// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/LoopSong.h"

#include <algorithm>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/ChordRange.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBChord.h"
#include "workflow/editing/SongEdits.h"

namespace korvel::cli {
namespace {

struct LoopOptions {
  std::string song;
  ChordRange range;
  bool clear = false;
};

void setEnds(QBSong& song, const ChordRange& range) {
  if (range.from == range.to) throw CliError("a loop has two ends: name two different chords");
  QBChord* first = chordAt(song, std::min(range.from, range.to));
  setLoop(song, *first, *chordAt(song, std::max(range.from, range.to)));
}

void changeLoop(const LoopOptions& options) {
  QBSong& song = chooseSong(options.song);
  options.clear ? clearLoop(song) : setEnds(song, options.range);
  printTitle(song);
}

}  // namespace

void addLoopSong(Command& tool) {
  Command& command = tool.command("loop", "Set the playback loop of a song");
  auto& options = command.own<LoopOptions>();
  needStoredSong(command, options.song);
  const Option last = addRange(command, options.range).last;
  Option off = command.flag("--clear", options.clear, "Take the loop away");
  off.excludes(last);
  command.checkAtOnce([last, off] {
    if (!last.isGiven() && !off.isGiven())
      throw UsageError("loop", "takes FROM and TO, or --clear");
  });
  command.does([&options] { changeLoop(options); });
}

}  // namespace korvel::cli
