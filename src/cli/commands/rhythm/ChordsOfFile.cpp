// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/rhythm/ChordsOfFile.h"

#include <chrono>
#include <optional>
#include <string>

#include "analysis/HearingSettings.h"
#include "analysis/beats/ChordChart.h"
#include "analysis/chords/Listening.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/RhythmFlags.h"
#include "cli/support/choices/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/hearing/ListeningAhead.h"
#include "workflow/hearing/SoundCheck.h"

namespace korvel::cli {
namespace {

/// Short enough to show how far it is.
constexpr std::chrono::milliseconds kPatienceOfChords{20};

struct ChordsOptions {
  std::string file;
  std::optional<std::string> tuning;  ///< Of the store; standard tuning when not given.
  HearingSettings settings = settingsOfFrontEnds();
};

rhythm::Rhythm rhythmOfFile(const ChordsOptions& options) {
  const OpenPitches open =
      options.tuning ? chooseTuning(*options.tuning).openStrings().pitches() : kStandardPitches;
  const auto listening = ListeningAhead({options.file}, open, options.settings).next();
  for (; !listening->isOver(); listening->waitFor(kPatienceOfChords))
    Console::attached().progress(listening->progress());
  Console::attached().progress(1);
  return listening->take().sound.rhythm;
}

void tellDoubts(const rhythm::Rhythm& heard) {
  Console& console = Console::attached();
  if (heard.isFree) console.note("its rhythm is too free to be read in bars, so they are a guess");
  if (!heard.others.empty() && heard.others.front().isNear())
    console.note("its rhythm may be " + rhythmText(heard.others.front()).english() +
                 " as well; see --tempo and --metre");
}

void printChords(const ChordsOptions& options) {
  requireSound(options.file);
  const rhythm::Rhythm heard = rhythmOfFile(options);
  const std::string chart = chordChart(heard.reading);
  if (chart.empty()) throw CliError(options.file + ": no chords were heard in it");
  Console::attached().print(chart);
  tellDoubts(heard);
}

}  // namespace

void addChordsOfFile(Command& tool) {
  Command& command = tool.command("chords", "Print the chords of a recording, bar by bar");
  auto& options = command.own<ChordsOptions>();
  command.option("FILE", options.file, "Sound file").required().shownAs("");
  command.option("--tuning", options.tuning,
                 "Tuning of the guitar, such as \"Drop D\" (default: Standard)");
  addDetectionFlags(command, options.settings);
  addRhythmFlags(command, options.settings);
  command.checkLast([&] { command.uses(options.tuning ? Store::filled : Store::none); });
  command.does([&options] { printChords(options); });
}

}  // namespace korvel::cli
