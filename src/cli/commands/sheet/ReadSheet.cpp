// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sheet/ReadSheet.h"

#include <optional>
#include <string>
#include <vector>

#include "cli/support/Command.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/store/QBTabMgr.h"
#include "platform/files/Files.h"
#include "workflow/sheets/ChordSong.h"

namespace korvel::cli {
namespace {

struct ReadOptions {
  std::vector<std::string> files;
  std::optional<std::string> album;
  std::optional<std::string> title;
};

void readSheets(const ReadOptions& options) {
  for (const std::string& file : options.files)
    printTitle(songOfChordPro(QBTabMgr::db(), platform::readWholeFile(file), file,
                              {options.album, options.title}));
}

}  // namespace

void addReadSheet(Command& tool) {
  Command& command = tool.command("chordpro", "Make songs of ChordPro files, with their lyrics");
  auto& options = command.own<ReadOptions>();
  command.option("FILE", options.files, "ChordPro files").required().shownAs("");
  command.option("--album", options.album,
                 "Album of the songs (default: named after the artist, or the song)");
  command.option("--title", options.title, "Title of the song (default: that of the file)");
  command.checkLast([&options] {
    if (options.title && options.files.size() > 1)
      throw UsageError("--title", "goes with one file only");
  });
  command.does([&options] { readSheets(options); });
}

}  // namespace korvel::cli
