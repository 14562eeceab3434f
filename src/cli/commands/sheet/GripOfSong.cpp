// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sheet/GripOfSong.h"

#include <algorithm>
#include <string>

#include "arrange/hands/HandShapes.h"
#include "cli/commands/editing/Passage.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "tab/page/PageOfSong.h"
#include "tab/page/SongPage.h"
#include "workflow/session/EditRefused.h"
#include "workflow/sheets/SongGrips.h"

namespace korvel::cli {
namespace {

struct GripOptions {
  std::string song;
  std::string chord;
  std::string shape;
  Passage passage;
};

/// By the name of its shape, or by what sounds.
int chordCalled(QBSong& song, const std::string& name) {
  const SongPage page = pageOf(song);
  for (const auto called : {&PageGrip::shape, &PageGrip::sounding}) {
    const auto grip = std::ranges::find(page.grips, name, called);
    if (grip != page.grips.end()) return grip->index;
  }
  std::string names;
  for (const PageGrip& grip : page.grips) names += (names.empty() ? "" : ", ") + grip.shape;
  throw CliError(fullTitle(song) + ": has no chord " + name +
                 (names.empty() ? "; name its chords first" : "; its chords are " + names));
}

void chooseGrip(const GripOptions& options) {
  QBSong& song = chooseSong(options.song);
  const ChordIndexes within = chordsOf(song, options.passage);
  try {
    holdChord(song, chordCalled(song, options.chord), shapeWritten(options.shape).value(),
              {within.first, within.last});
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  }
  printTitle(song);
}

void checkGrip(const GripOptions& options) {
  if (!shapeWritten(options.shape))
    throw UsageError("SHAPE", "is a fret or x for each string, the lowest first, such as x02210");
}

}  // namespace

void addGripOfSong(Command& tool) {
  Command& command = tool.command("grip", "Hold a chord of a song in another shape");
  auto& options = command.own<GripOptions>();
  needStoredSong(command, options.song);
  command.option("CHORD", options.chord, "Its name on the page").required().shownAs("");
  command.option("SHAPE", options.shape, "Frets from the capo, as sheet --grips prints them")
      .required()
      .shownAs("");
  addPassage(command, options.passage);
  command.checkLast([&options] { checkGrip(options); });
  command.does([&options] { chooseGrip(options); });
}

}  // namespace korvel::cli
