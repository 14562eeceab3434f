// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/editing/FingerSong.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

#include "cli/commands/editing/Passage.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "workflow/editing/fingers/SongFingers.h"
#include "workflow/session/EditRefused.h"

namespace korvel::cli {
namespace {

struct FingerOptions {
  std::string song;
  Passage passage;
  int near = 0;
  bool anywhere = false;
  bool unmark = false;
  int strings = 0;  ///< To higher strings when positive.
  int string = 0;   ///< Of the tone that is meant alone, 1 the highest; 0 for all.
  int shape = 0;
  bool anew = false;

  bool areTold() const {
    return near > 0 || anywhere || unmark || strings != 0 || shape != 0 || anew;
  }
};

void printHands(QBSong& song) {
  for (const auto& chord : song.allChords()) {
    if (!chord->hasHandFret()) continue;
    const bool isAnywhere = chord->handFret() == SongFingers::kAnywhere;
    Console::attached().printLine(
        "chord " + std::to_string(chord->position()) + ": " +
        (isAnywhere ? "anywhere" : "near fret " + std::to_string(chord->handFret())));
  }
}

void change(QBSong& song, const FingerOptions& options) {
  const ChordIndexes chords = chordsOf(song, options.passage);
  SongFingers fingers(QBTabMgr::db(), song);
  if (options.near > 0)
    fingers.setHand(chords.first, options.near);
  else if (options.anywhere)
    fingers.setHand(chords.first, SongFingers::kAnywhere);
  else if (options.unmark)
    fingers.setHand(chords.first, std::nullopt);
  else if (options.string > 0)
    fingers.moveTone(chords.first, kStrings - options.string, options.strings);
  else if (options.strings != 0)
    fingers.movePhrase(chords.first, chords.last, options.strings);
  else if (options.shape != 0)
    fingers.changeShape(chords.first, options.shape);
  else
    fingers.fingerAnew(chords.first, chords.last);
}

void fingerSong(const FingerOptions& options) {
  QBSong& song = chooseSong(options.song);
  if (!options.areTold()) return printHands(song);
  try {
    change(song, options);
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  }
  printTitle(song);
}

void checkFinger(const Command& command, const FingerOptions& options) {
  std::string given;
  for (const char* name : {"--near", "--anywhere", "--unmark", "--higher", "--lower",
                           "--next-shape", "--previous-shape", "--anew"}) {
    if (!command.isGiven(name)) continue;
    if (!given.empty()) throw UsageError(name, "excludes " + given);
    given = name;
  }
  if (options.string > 0 && options.strings == 0)
    throw UsageError("--string", "goes with --higher or --lower");
  if (!given.empty() && given != "--anew" && !options.passage.isTold())
    throw UsageError(given, "takes --from or --chord");
}

void addHandFlags(Command& command, FingerOptions& options) {
  command.option("--near", options.near, "From there on the hand is near this fret")
      .wholeWithin(1, SongFingers::kHighestHand)
      .shownAs("FRET");
  command.flag("--anywhere", options.anywhere, "From there on it is where notes are easiest");
  command.flag("--unmark", options.unmark, "Forget what was said of the hand there");
}

void addStringFlags(Command& command, FingerOptions& options) {
  command.flag(
      "--higher", [&options] { options.strings = 1; }, "To higher strings, lower on the neck");
  command.flag(
      "--lower", [&options] { options.strings = -1; }, "To lower strings, higher on the neck");
  command.option("--string", options.string, "The tone on this string of one chord, 1 the highest")
      .wholeWithin(1, kStrings)
      .shownAs("STRING");
  command.flag(
      "--next-shape", [&options] { options.shape = 1; }, "Another way to hold the chord");
  command.flag(
      "--previous-shape", [&options] { options.shape = -1; }, "The one before");
  command.flag("--anew", options.anew, "Choose strings anew, but for what was changed by hand");
}

}  // namespace

void addFingerSong(Command& tool) {
  Command& command =
      tool.command("finger", "Say where the hand is in a song, or move notes to other strings");
  auto& options = command.own<FingerOptions>();
  needStoredSong(command, options.song);
  addPassage(command, options.passage);
  addHandFlags(command, options);
  addStringFlags(command, options);
  command.checkLast([&command, &options] { checkFinger(command, options); });
  command.does([&options] { fingerSong(options); });
}

}  // namespace korvel::cli
