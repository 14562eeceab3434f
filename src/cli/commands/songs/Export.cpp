// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/Export.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands/sound/Render.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "cli/support/PaperFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::cli {
namespace {

struct ExportOptions {
  std::string song;
  std::vector<std::string> files;       ///< In the formats that their endings name.
  std::optional<std::string> txt;       ///< File for the text tablature.
  std::optional<std::string> musicxml;  ///< File for the score.
  std::optional<std::string> mxl;       ///< The same in an archive.
  std::optional<std::string> gp5;       ///< File of Guitar Pro 5.
  std::optional<std::string> gp;        ///< File of Guitar Pro 7 and 8.
  std::optional<std::string> alphatex;  ///< File in alphaTex.
  std::optional<std::string> abc;       ///< File in ABC notation.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> wav;       ///< File that the song sounds from.
  bool diagrams = false;                ///< Above the tablature that is drawn.
  bool leftHanded = false;              ///< Those diagrams.
  PaperFlags paper;                     ///< Files that the tablature is drawn into.
  std::optional<std::string> metric;    ///< Such as "3/4"; the song's own when not given.
  bool force = false;                   ///< Replaces files that are there already.
};

using Name = std::optional<std::string>;

/// A file with the endings of names that mean its format.
struct Target {
  Name& name;
  const char* ending;
  const char* other = "";
};

std::vector<Target> targetsOf(ExportOptions& options) {
  return {{options.txt, ".txt", ".tab"}, {options.musicxml, ".musicxml", ".xml"},
          {options.mxl, ".mxl"},         {options.gp5, ".gp5"},
          {options.gp, ".gp"},           {options.alphatex, ".alphatex", ".atex"},
          {options.abc, ".abc"},         {options.midi, ".mid", ".midi"},
          {options.wav, ".wav"},         {options.paper.pdf, ".pdf"},
          {options.paper.png, ".png"},   {options.paper.svg, ".svg"}};
}

std::string endingOf(const std::string& file) {
  std::string ending = std::filesystem::path(file).extension().string();
  for (char& letter : ending)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return ending;
}

/// As if each had been given with the option of its format.
void sortByEnding(ExportOptions& options) {
  for (const std::string& file : options.files) {
    const std::string ending = endingOf(file);
    const auto targets = targetsOf(options);
    const auto target = std::ranges::find_if(targets, [&](const Target& each) {
      return !ending.empty() && (ending == each.ending || ending == each.other);
    });
    if (target == targets.end())
      throw UsageError("FILE", file + ": its ending names no format; see --help");
    if (target->name) throw UsageError("FILE", file + ": is the second one of its format");
    target->name = file;
  }
}

std::vector<Name> filesOf(ExportOptions& options) {
  std::vector<Name> names;
  for (const Target& each : targetsOf(options))
    if (each.name) names.push_back(each.name);
  return names;
}

void checkFiles(ExportOptions& options) {
  sortByEnding(options);
  if (filesOf(options).empty())
    throw UsageError("export",
                     "takes one or more of --txt, --musicxml, --mxl, --gp5, --gp, --alphatex, "
                     "--abc, --midi, --wav, --pdf, --png and --svg, or files with such an ending");
}

std::optional<Meter> chosenMeter(const std::optional<std::string>& metric) {
  if (!metric) return std::nullopt;
  if (*metric == "4/4") return Meter{4, 4};
  if (*metric == "3/4") return Meter{3, 4};
  if (*metric == "6/8") return Meter{6, 8};
  return Meter{12, 8};
}

struct Output {
  OutputFile file;
  std::function<std::string()> make;
};

std::vector<Output> outputsOf(const ExportOptions& options, QBSong& song) {
  std::vector<Output> outputs;
  const auto add = [&](const std::optional<std::string>& file, std::function<std::string()> make) {
    if (file) outputs.push_back({OutputFile(*file, options.force), std::move(make)});
  };
  const auto as = [&](SongFormat format) {
    return [&song, format, meter = chosenMeter(options.metric)] {
      return songFile(song, format, meter);
    };
  };
  add(options.txt, as(SongFormat::text));
  add(options.musicxml, as(SongFormat::musicXml));
  add(options.mxl, as(SongFormat::compressedMusicXml));
  add(options.gp5, as(SongFormat::guitarPro5));
  add(options.gp, as(SongFormat::guitarPro7));
  add(options.alphatex, as(SongFormat::alphaTex));
  add(options.abc, as(SongFormat::abc));
  add(options.midi, as(SongFormat::midi));
  return outputs;
}

std::optional<OutputFile> waveOf(const ExportOptions& options) {
  if (!options.wav) return std::nullopt;
  return OutputFile(*options.wav, options.force);
}

/// Makes all of the files before it writes the first.
void exportSong(ExportOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  OutputFile::requireDifferent(filesOf(options));
  const std::vector<Output> outputs = outputsOf(options, song);
  for (const Output& output : outputs) output.file.check();
  const std::optional<OutputFile> wave = waveOf(options);
  if (wave) wave->check();
  std::vector<std::string> contents;
  contents.reserve(outputs.size());
  for (const Output& output : outputs) contents.push_back(output.make());
  const PrintedSong printed = printedTablature(song, options.diagrams, options.leftHanded);
  const auto drawn = drawnFiles(options.paper, printed, options.force);
  // The one that takes most room first: when there is not enough, nothing is written.
  if (wave) renderSong(song, *wave, {});
  for (std::size_t i = 0; i < outputs.size(); ++i) outputs[i].file.write(contents[i]);
  for (const auto& [file, content] : drawn) file.write(content);
}

}  // namespace

void addExport(Command& tool) {
  Command& command = tool.command("export", "Write a song to files");
  auto& options = command.own<ExportOptions>();
  addSong(command, options.song);
  command.option("FILE", options.files, "Files in the formats that their endings name").shownAs("");
  command.option("--txt", options.txt, "Text tablature").shownAs("FILE");
  command.option("--musicxml", options.musicxml, "Score for notation programs").shownAs("FILE");
  command.option("--mxl", options.mxl, "The score, compressed").shownAs("FILE");
  command.option("--gp5", options.gp5, "Tablature for Guitar Pro 5").shownAs("FILE");
  command.option("--gp", options.gp, "Tablature for Guitar Pro 7 and 8").shownAs("FILE");
  command.option("--alphatex", options.alphatex, "Tablature in alphaTex").shownAs("FILE");
  command.option("--abc", options.abc, "Notes in ABC notation").shownAs("FILE");
  command.option("--midi", options.midi, "What is played, for sequencers").shownAs("FILE");
  command.option("--wav", options.wav, "The sound of it, as render writes it").shownAs("FILE");
  addPaperFlags(command, options.paper, "Tablature");
  const Option diagrams =
      command.flag("--diagrams", options.diagrams, "With chord diagrams above it");
  command.flag("--left-handed", options.leftHanded, "Diagrams for a guitar that is held so")
      .needs(diagrams);
  command
      .option("--metric", options.metric,
              "Time signature of score and MIDI (default: the song's, or 4/4)")
      .oneOf({"4/4", "3/4", "6/8", "12/8"});
  command.flag("--force", options.force, "Replace files that are there already");
  command.checkLast([&options] { checkFiles(options); });
  command.uses(Store::existing);
  command.does([&options] { exportSong(options); });
}

}  // namespace korvel::cli
