// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/ExtractPart.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/choices/ChordRange.h"
#include "cli/support/choices/SongChoice.h"
#include "workflow/library/SongCopies.h"

namespace korvel::cli {
namespace {

struct ExtractOptions {
  std::string song;
  ChordRange range;
};

void extractStored(const ExtractOptions& options) {
  QBSong& song = chooseSong(options.song);
  const auto [from, to] = options.range;
  chordAt(song, from);
  chordAt(song, to);
  if (to < from) throw CliError("the part must end behind its begin: name the lower chord first");
  printTitle(extractPart(song, from, to));
}

}  // namespace

void addExtractPart(Command& tool) {
  Command& command = tool.command("extract", "Copy chords to a new song");
  auto& options = command.own<ExtractOptions>();
  needStoredSong(command, options.song);
  RangeOptions range = addRange(command, options.range);
  range.first.required();
  range.last.required();
  command.does([&options] { extractStored(options); });
}

}  // namespace korvel::cli
