// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/editing/RetuneSong.h"

#include <optional>
#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/TuningChoice.h"
#include "fingering/FingeringOptions.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/editing/fingers/RestrungSong.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/session/EditRefused.h"

namespace korvel::cli {
namespace {

using fingering::FingeringOptions;

struct RetuneOptions {
  std::string song;
  std::optional<std::string> tuning;
  int capo = 0;
  bool movesCapo = false;
  bool keepsSound = false;
  bool keepsFrets = false;
};

void retuneSong(const RetuneOptions& options) {
  QBSong& song = chooseSong(options.song);
  Strings strings;
  if (options.tuning) strings.tuning = &tuningToPlayIn(*options.tuning);
  if (options.movesCapo) strings.capo = options.capo;
  int dropped = 0;
  try {
    dropped = SongFingers(QBTabMgr::db(), song)
                  .retune(strings,
                          options.keepsFrets ? SongFingers::Kept::frets : SongFingers::Kept::sound);
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  }
  if (dropped > 0)
    Console::attached().printLine(std::to_string(dropped) +
                                  (dropped == 1 ? " note has no place " : " notes have no place ") +
                                  (strings.tuning ? "in this tuning" : "with this capo") +
                                  (dropped == 1 ? " and was" : " and were") + " left out");
  printTitle(song);
}

}  // namespace

void addRetuneSong(Command& tool) {
  Command& command = tool.command("retune", "Give a song another tuning, or its capo another fret");
  auto& options = command.own<RetuneOptions>();
  needStoredSong(command, options.song);
  command.option("--tuning", options.tuning, "Its name").shownAs("TUNING");
  command
      .option("--capo", options.capo,
              "Fret of the capo, 0 for none; frets still count from the nut")
      .wholeWithin(0, FingeringOptions::kHighestCapo)
      .shownAs("FRET");
  command.flag("--keep-sound", options.keepsSound, "Play the same notes on other places");
  command.flag("--keep-frets", options.keepsFrets, "Play the same frets, which sound otherwise");
  command.checkLast([&command, &options] {
    options.movesCapo = command.isGiven("--capo");
    if (!options.tuning && !options.movesCapo)
      throw UsageError("retune", "takes --tuning, --capo or both");
    if (options.keepsSound == options.keepsFrets)
      throw UsageError("retune", "takes --keep-sound or --keep-frets");
  });
  command.does([&options] { retuneSong(options); });
}

}  // namespace korvel::cli
