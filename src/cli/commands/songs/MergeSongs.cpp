// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/MergeSongs.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/SongChoice.h"
#include "workflow/library/SongCopies.h"

namespace korvel::cli {
namespace {

struct MergeSongsOptions {
  std::string song;
  std::string other;
};

void mergeStored(const MergeSongsOptions& options) {
  QBSong& song = chooseSong(options.song);
  QBSong& added = chooseSong(options.other);
  requireChords(song);
  requireChords(added);
  printTitle(mergeSongs(song, added));
}

}  // namespace

void addMergeSongs(Command& tool) {
  Command& command =
      tool.command("merge", "Add the tones of another song, chord by chord, in a new song");
  auto& options = command.own<MergeSongsOptions>();
  needStoredSong(command, options.song);
  command.option("OTHER", options.other, "").required().shownAs("");
  command.does([&options] { mergeStored(options); });
}

}  // namespace korvel::cli
