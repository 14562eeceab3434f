// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sheet/LyricsOfSong.h"

#include <optional>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "tab/page/LyricsText.h"
#include "tab/page/PageOfSong.h"
#include "workflow/editing/words/LyricsEdits.h"
#include "workflow/session/EditRefused.h"

namespace korvel::cli {
namespace {

struct LyricsOptions {
  std::string song;
  std::optional<std::string> file;
  bool clear = false;
  bool show = false;
};

void doLyrics(const LyricsOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  if (!options.file && !options.clear)
    return Console::attached().printText(lyricsText(pageSourceOf(song)));
  try {
    if (options.clear)
      changeLyrics(song, {});
    else
      typeLyrics(song, platform::readWholeFile(*options.file));
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  } catch (const NoPlaceForWords& reason) {
    throw CliError(*options.file + ": " + reason.what());
  }
  printTitle(song);
}

void checkLyrics(const LyricsOptions& options) {
  if (options.show && (options.file || options.clear))
    throw UsageError("--show", "excludes --set and --clear");
}

}  // namespace

void addLyricsOfSong(Command& tool) {
  Command& command =
      tool.command("lyrics", "Print the lyrics of a song, or take them from a text file");
  auto& options = command.own<LyricsOptions>();
  needStoredSong(command, options.song);
  Option set =
      command.option("--set", options.file,
                     "A line for every four bars; | goes on to the next bar, and \"9:\" in "
                     "front of a line places it at bar 9");
  set.shownAs("FILE");
  command.flag("--clear", options.clear, "Take the lyrics away").excludes(set);
  command.flag("--show", options.show, "Print them, as --set reads them (the default)");
  command.checkLast([&options] { checkLyrics(options); });
  command.does([&options] { doLyrics(options); });
}

}  // namespace korvel::cli
