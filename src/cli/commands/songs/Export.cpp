// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/songs/Export.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands/sound/Render.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/exporting/SongFiles.h"

namespace korvel::cli {
namespace {

struct ExportOptions {
  std::string song;
  std::optional<std::string> txt;       ///< File for the text tablature.
  std::optional<std::string> musicxml;  ///< File for the score.
  std::optional<std::string> mxl;       ///< The same in an archive.
  std::optional<std::string> gp5;       ///< File of Guitar Pro 5.
  std::optional<std::string> gp;        ///< File of Guitar Pro 7 and 8.
  std::optional<std::string> alphatex;  ///< File in alphaTex.
  std::optional<std::string> abc;       ///< File in ABC notation.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> wav;       ///< File that the song sounds from.
  std::optional<std::string> metric;    ///< Such as "3/4"; the song's own when not given.
  bool force = false;                   ///< Replaces files that are there already.
};

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
void exportSong(const ExportOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  OutputFile::requireDifferent({options.txt, options.musicxml, options.mxl, options.gp5, options.gp,
                                options.alphatex, options.abc, options.midi, options.wav});
  const std::vector<Output> outputs = outputsOf(options, song);
  for (const Output& output : outputs) output.file.check();
  const std::optional<OutputFile> wave = waveOf(options);
  if (wave) wave->check();
  std::vector<std::string> contents;
  contents.reserve(outputs.size());
  for (const Output& output : outputs) contents.push_back(output.make());
  // The one that takes most room first: when there is not enough, nothing is written.
  if (wave) renderSong(song, *wave, {});
  for (std::size_t i = 0; i < outputs.size(); ++i) outputs[i].file.write(contents[i]);
}

}  // namespace

void addExport(Command& tool) {
  Command& command = tool.command("export", "Write a song to files");
  auto& options = command.own<ExportOptions>();
  addSong(command, options.song);
  command.option("--txt", options.txt, "Text tablature").shownAs("FILE");
  command.option("--musicxml", options.musicxml, "Score for notation programs").shownAs("FILE");
  command.option("--mxl", options.mxl, "The score, compressed").shownAs("FILE");
  command.option("--gp5", options.gp5, "Tablature for Guitar Pro 5").shownAs("FILE");
  command.option("--gp", options.gp, "Tablature for Guitar Pro 7 and 8").shownAs("FILE");
  command.option("--alphatex", options.alphatex, "Tablature in alphaTex").shownAs("FILE");
  command.option("--abc", options.abc, "Notes in ABC notation").shownAs("FILE");
  command.option("--midi", options.midi, "What is played, for sequencers").shownAs("FILE");
  command.option("--wav", options.wav, "The sound of it, as render writes it").shownAs("FILE");
  command
      .option("--metric", options.metric,
              "Time signature of score and MIDI (default: the song's, or 4/4)")
      .oneOf({"4/4", "3/4", "6/8", "12/8"});
  command.flag("--force", options.force, "Replace files that are there already");
  command.checkLast([&options] {
    const auto isGiven = [](const auto* file) { return file->has_value(); };
    if (std::ranges::none_of(
            std::array{&options.txt, &options.musicxml, &options.mxl, &options.gp5, &options.gp,
                       &options.alphatex, &options.abc, &options.midi, &options.wav},
            isGiven))
      throw UsageError("export",
                       "takes one or more of --txt, --musicxml, --mxl, --gp5, --gp, --alphatex, "
                       "--abc, --midi and "
                       "--wav");
  });
  command.uses(Store::existing);
  command.does([&options] { exportSong(options); });
}

}  // namespace korvel::cli
