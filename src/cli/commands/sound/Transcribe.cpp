// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Transcribe.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/chords/Transcription.h"
#include "audio/MonoTrack.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/OutputFile.h"
#include "cli/support/TuningChoice.h"
#include "export/SongJson.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "precise/Settings.h"
#include "workflow/exporting/NoteScore.h"
#include "workflow/exporting/ScoreFile.h"
#include "workflow/hearing/SoundCheck.h"

namespace korvel::cli {
namespace {

struct TranscribeOptions {
  std::string file;
  std::optional<std::string> json;      ///< File for the notes; stdout when no file is given.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> musicxml;  ///< File for notation programs.
  std::optional<double> tempo;          ///< Quarters a minute; assumed when not given.
  std::optional<std::string> tuning;    ///< Of the store; standard tuning when not given.
  bool force = false;                   ///< Replaces files that are there already.
  precise::Settings settings{};
};

OpenPitches openStrings(const TranscribeOptions& options) {
  return options.tuning ? chooseTuning(*options.tuning).openStrings().pitches() : kStandardPitches;
}

Transcription hear(const TranscribeOptions& options) {
  const auto track = std::make_shared<MonoTrack>(options.file);
  track->startRecord(0);
  Transcription heard(track, openStrings(options), options.settings);
  while (heard.step()) Console::attached().progress(heard.progress());
  Console::attached().progress(1);
  return heard;
}

/// The formats that were asked for, each with its file.
class Outputs {
 public:
  explicit Outputs(const TranscribeOptions& options) : m_options(options) {
    OutputFile::requireDifferent({options.json, options.midi, options.musicxml});
    for (const auto* name : {&options.json, &options.midi, &options.musicxml})
      if (*name) checkFile(**name);
  }

  void write(const std::vector<precise::Note>& notes, const OpenPitches& open) const {
    const std::string title = std::filesystem::path(m_options.file).stem().string();
    const NoteScore score(notes, m_options.tempo);
    if (m_options.json) fileOf(*m_options.json).write(notesAsJson(notes));
    if (m_options.midi) fileOf(*m_options.midi).write(midiFile(score.midi(title)));
    if (m_options.musicxml) fileOf(*m_options.musicxml).write(musicXmlOf(score.score(title, open)));
    if (!m_options.json && !m_options.midi && !m_options.musicxml)
      Console::attached().print(notesAsJson(notes));
  }

 private:
  void checkFile(const std::string& name) const {
    const OutputFile file = fileOf(name);
    file.requireOtherThan(m_options.file);
    file.check();
  }
  OutputFile fileOf(const std::string& name) const { return {name, m_options.force}; }

  const TranscribeOptions& m_options;
};

void transcribe(const TranscribeOptions& options) {
  requireSound(options.file);
  const Outputs outputs(options);
  const Transcription heard = hear(options);
  outputs.write(heard.result().notes, openStrings(options));
}

}  // namespace

void addTranscribe(Command& tool) {
  Command& command =
      tool.command("transcribe", "Print the notes of a recording as JSON, or write them to files");
  auto& options = command.own<TranscribeOptions>();
  command.option("FILE", options.file, "Sound file").required().shownAs("");
  command.option("--json", options.json, "Notes (default: printed when no file is named)")
      .shownAs("FILE");
  command.option("--midi", options.midi, "Notes at their times, for sequencers").shownAs("FILE");
  command.option("--musicxml", options.musicxml, "Notes to the nearest sixteenth, as a score")
      .shownAs("FILE");
  command.option("--tempo", options.tempo, "Quarters a minute (default: what fits the notes)")
      .within(20, 400);
  command.flag("--force", options.force, "Replace files that are there already");
  command.option("--tuning", options.tuning,
                 "Tuning of the guitar, such as \"Drop D\" (default: Standard)");
  addDetectionFlags(command, options.settings);
  command.checkLast(
      [&] { command.uses(options.tuning.has_value() ? Store::filled : Store::none); });
  command.does([&options] { transcribe(options); });
}

}  // namespace korvel::cli
