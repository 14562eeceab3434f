// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/Export.h"

#include <functional>
#include <vector>

#include "cli/commands/Render.h"
#include "cli/support/Console.h"
#include "cli/support/OutputFile.h"
#include "cli/support/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/exporting/SongFiles.h"
#include "workflow/session/TuningForNow.h"

namespace korvel::cli {
namespace {

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
  add(options.midi, as(SongFormat::midi));
  return outputs;
}

std::optional<OutputFile> waveOf(const ExportOptions& options) {
  if (!options.wav) return std::nullopt;
  return OutputFile(*options.wav, options.force);
}

}  // namespace

void exportSong(const ExportOptions& options) {
  QBSong& song = chooseSong(options.song);
  requireChords(song);
  const TuningForNow chosen(song.tuning());
  OutputFile::requireDifferent({options.txt, options.musicxml, options.midi, options.wav});
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

}  // namespace korvel::cli
