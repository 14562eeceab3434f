// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/editing/RetuneSong.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/TuningChoice.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/session/EditRefused.h"

namespace korvel::cli {
namespace {

struct RetuneOptions {
  std::string song;
  std::string tuning;
  bool keepsSound = false;
  bool keepsFrets = false;
};

void retuneSong(const RetuneOptions& options) {
  QBSong& song = chooseSong(options.song);
  QBTuning& tuning = chooseTuning(options.tuning);
  int dropped = 0;
  try {
    dropped = SongFingers(QBTabMgr::db(), song)
                  .retune(tuning,
                          options.keepsFrets ? SongFingers::Kept::frets : SongFingers::Kept::sound);
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  }
  if (dropped > 0)
    Console::attached().printLine(std::to_string(dropped) +
                                  (dropped == 1 ? " note has no place in this tuning and was"
                                                : " notes have no place in this tuning and were") +
                                  " left out");
  printTitle(song);
}

}  // namespace

void addRetuneSong(Command& tool) {
  Command& command = tool.command("retune", "Give a song another tuning");
  auto& options = command.own<RetuneOptions>();
  needStoredSong(command, options.song);
  command.option("--tuning", options.tuning, "Its name").required().shownAs("TUNING");
  command.flag("--keep-sound", options.keepsSound, "Play the same notes on other places");
  command.flag("--keep-frets", options.keepsFrets, "Play the same frets, which sound otherwise");
  command.checkLast([&options] {
    if (options.keepsSound == options.keepsFrets)
      throw UsageError("retune", "takes --keep-sound or --keep-frets");
  });
  command.does([&options] { retuneSong(options); });
}

}  // namespace korvel::cli
