// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/editing/NameChords.h"

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "arrange/harmony/WrittenName.h"
#include "cli/commands/editing/Passage.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "workflow/editing/NamedPassages.h"
#include "workflow/editing/SongEditor.h"
#include "workflow/session/EditRefused.h"

namespace korvel::cli {
namespace {

struct NameOptions {
  std::string song;
  std::optional<std::string> name;
  Passage passage;
  bool alike = false;
  bool none = false;
};

/// One chord stands for all around it that have its name.
ChordSpan passageOf(const NamedPassages& passages, const Passage& told, ChordIndexes chords) {
  const bool isOne = told.fromChord != Passage::kUntold && told.toChord == Passage::kUntold;
  return isOne ? passages.around(chords.first) : ChordSpan{chords.first, chords.last};
}

void printOffers(QBSong& song, const NamedPassages& passages, ChordSpan passage) {
  for (const WeighedName& offer : passages.offers(passage)) {
    const auto percent = std::to_string(std::lround(100 * offer.weight)) + " %";
    Console::attached().printLine(std::string(percent.size() < 5 ? 5 - percent.size() : 0, ' ') +
                                  percent + "  " + writtenName(offer.name, &song));
  }
}

void setName(QBSong& song, const std::vector<ChordSpan>& passages, const NameOptions& options) {
  QBTabMgr& db = QBTabMgr::db();
  SongEditor editor(db, song);
  if (options.none) return editor.nameAll(passages, nullptr);
  const ChordName name = parseChordName(db, *options.name);
  editor.nameAll(passages, &name);
}

void nameChords(const NameOptions& options) {
  QBSong& song = chooseSong(options.song);
  const ChordIndexes chords = chordsOf(song, options.passage);
  const NamedPassages passages(QBTabMgr::db(), song);
  const ChordSpan passage = passageOf(passages, options.passage, chords);
  if (!options.name && !options.none) return printOffers(song, passages, passage);
  try {
    setName(song, options.alike ? passages.alike(passage) : std::vector{passage}, options);
  } catch (const EditRefused& reason) {
    throw CliError(fullTitle(song) + ": " + reason.what());
  }
  printTitle(song);
}

void checkName(const NameOptions& options) {
  if (!options.passage.isTold()) throw UsageError("name", "takes --from or --chord");
  if (options.name && options.none) throw UsageError("--none", "excludes NAME");
  if (options.alike && !options.name && !options.none)
    throw UsageError("--alike", "goes with NAME or --none");
}

}  // namespace

void addNameChords(Command& tool) {
  Command& command = tool.command(
      "name", "Name the chords of a passage, or print what they may be called, with weights");
  auto& options = command.own<NameOptions>();
  needStoredSong(command, options.song);
  command.option("NAME", options.name, "Such as F#m7").shownAs("");
  addPassage(command, options.passage);
  command.flag("--alike", options.alike, "All passages in which the same notes sound");
  command.flag("--none", options.none, "Take the name away");
  command.checkLast([&options] { checkName(options); });
  command.does([&options] { nameChords(options); });
}

}  // namespace korvel::cli
