// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sheet/SheetOfSong.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arrange/harmony/ChordName.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "cli/support/PaperFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "tab/chordpro/ChordProText.h"
#include "tab/page/CapoTable.h"
#include "tab/page/ChordNumber.h"
#include "tab/page/PageOfSong.h"
#include "tab/page/PageText.h"
#include "tab/page/SongPage.h"

namespace korvel::cli {
namespace {

constexpr const char* kBest = "best";
constexpr int kMostHalfTones = 11;

struct SheetOptions {
  std::string song;
  std::optional<std::string> capo;  ///< A fret, or kBest.
  int halfTones = 0;
  std::optional<std::string> key;  ///< That it is to sound in.
  std::optional<std::string> numbers;
  bool leftHanded = false;
  bool grips = false;
  std::optional<std::string> chordPro;
  std::optional<std::string> text;
  PaperFlags paper;
  bool force = false;

  bool writesFiles() const { return chordPro || text || paper.areGiven(); }
};

std::optional<int> fretOf(const std::string& capo) {
  for (int fret = 0; fret <= PageOptions::kHighestCapo; ++fret)
    if (capo == std::to_string(fret)) return fret;
  return std::nullopt;
}

/// The nearest way there, up among equals.
int halfTonesTo(const std::string& name, const PageSource& source) {
  const int from = source.key.value_or(guessedKey(source.chords));
  const std::string root = name.ends_with('m') ? name.substr(0, name.size() - 1) : name;
  const int up = pitchClass(parseChordName(QBTabMgr::db(), root).baseTone - from);
  return up > kNotesPerOctave / 2 ? up - kNotesPerOctave : up;
}

PageOptions pageOptions(const SheetOptions& options, const PageSource& source) {
  PageOptions page;
  page.halfTones = options.key ? halfTonesTo(*options.key, source) : options.halfTones;
  page.leftHanded = options.leftHanded;
  if (options.numbers)
    page.numbers = *options.numbers == "roman" ? ChordNumbers::roman : ChordNumbers::nashville;
  if (options.capo && *options.capo != kBest) page.capo = fretOf(*options.capo);
  if (options.capo == kBest) {
    PageSource moved = source;
    for (PageSource::Chord& chord : moved.chords) chord = movedChord(chord, page.halfTones);
    page.capo = bestCapo(capoTable(moved));
  }
  return page;
}

/// Every chord with its shape and the next ones.
std::string gripLines(const SongPage& page) {
  std::size_t width = 0;
  for (const PageGrip& grip : page.grips) width = std::max(width, grip.name.size());
  std::string text;
  for (const PageGrip& grip : page.grips) {
    text += grip.name + std::string(width - grip.name.size() + 2, ' ') + shorthandOf(grip.frets);
    for (const ChordShape& other : grip.others) text += "  " + shorthandOf(other);
    text += '\n';
  }
  return text;
}

void writeSheet(const SheetOptions& options, const SongPage& page) {
  const PaperFlags& paper = options.paper;
  OutputFile::requireDifferent({options.chordPro, options.text, paper.pdf, paper.png, paper.svg});
  std::vector<FilledFile> files;
  if (options.chordPro)
    files.emplace_back(OutputFile(*options.chordPro, options.force), chordProOf(page));
  if (options.text) files.emplace_back(OutputFile(*options.text, options.force), pageText(page));
  for (const auto& [file, content] : files) file.check();
  for (FilledFile& drawn : drawnFiles(paper, printedPage(page), options.force))
    files.push_back(std::move(drawn));
  for (const auto& [file, content] : files) file.write(content);
}

void makeSheet(const SheetOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  const PageSource source = pageSourceOf(song);
  const SongPage page = pageOf(source, pageOptions(options, source));
  if (page.isEmpty())
    throw CliError(fullTitle(song) + ": no chord of it has a name; name its chords first");
  if (options.grips) return Console::attached().printText(gripLines(page));
  if (options.writesFiles()) return writeSheet(options, page);
  Console::attached().printText(pageText(page));
}

void checkSheet(const SheetOptions& options) {
  if (options.capo && *options.capo != kBest && !fretOf(*options.capo))
    throw UsageError("--capo", "takes a fret from 0 to 11, or best");
  if (options.grips && options.writesFiles()) throw UsageError("--grips", "excludes files");
}

}  // namespace

void addSheetOfSong(Command& tool) {
  Command& command =
      tool.command("sheet", "Print the page of a song's chords, with grips and lyrics");
  auto& options = command.own<SheetOptions>();
  needStoredSong(command, options.song);
  command
      .option("--capo", options.capo,
              "Shapes behind a capo at this fret, or at the best one (default: as it is played)")
      .shownAs("FRET|best");
  Option transpose =
      command.option("--transpose", options.halfTones, "Half tones up, or down when negative");
  transpose.wholeWithin(-kMostHalfTones, kMostHalfTones);
  command.option("--key", options.key, "In this key, such as G, by the nearest way")
      .shownAs("KEY")
      .excludes(transpose);
  command.option("--numbers", options.numbers, "The steps of the key in place of names")
      .oneOf({"roman", "nashville"});
  command.flag("--left-handed", options.leftHanded, "Grips for a guitar that is held so");
  command.flag("--grips", options.grips, "Print only the grips, each with others of its chord");
  command.option("--chordpro", options.chordPro, "Write a ChordPro file").shownAs("FILE");
  command.option("--text", options.text, "Write the page as text").shownAs("FILE");
  addPaperFlags(command, options.paper, "The page");
  command.flag("--force", options.force, "Replace files that are there already");
  command.checkLast([&options] { checkSheet(options); });
  command.does([&options] { makeSheet(options); });
}

}  // namespace korvel::cli
