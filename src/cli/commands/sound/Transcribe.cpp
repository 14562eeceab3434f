// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/sound/Transcribe.h"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/chords/Listening.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/OutputFile.h"
#include "cli/support/RhythmFlags.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/TuningChoice.h"
#include "export/SongJson.h"
#include "export/score/SongScore.h"
#include "music/Neck.h"
#include "platform/text/UserError.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/exporting/NoteScore.h"
#include "workflow/exporting/ScoreFile.h"
#include "workflow/hearing/ListeningAhead.h"
#include "workflow/hearing/RecordingTags.h"
#include "workflow/hearing/SoundCheck.h"

namespace korvel::cli {
namespace {

/// Short enough to show how far it is.
constexpr std::chrono::milliseconds kPatience{20};

struct TranscribeOptions {
  std::vector<std::string> files;
  std::optional<std::string> json;      ///< File for the notes; stdout when no file is given.
  std::optional<std::string> midi;      ///< File for sequencers.
  std::optional<std::string> musicxml;  ///< File for notation programs.
  std::optional<std::string> tuning;    ///< Of the store, or kFoundTuning; Standard if not given.
  bool force = false;                   ///< Replaces files that are there already.
  HearingSettings settings = settingsOfFrontEnds();
};

OpenPitches openStrings(const TranscribeOptions& options) {
  return isNamedTuning(options.tuning) ? stringsOfTuning(*options.tuning) : kStandardPitches;
}

/// What was heard in a file, and what it can be written in.
struct HeardFile {
  NotesOfFile notes;
  Grid grid;
  OpenPitches open;
};

/// thought: the strings unless others were found.
HeardFile heardIn(const std::string& file, const OpenPitches& thought, Listening& listening) {
  for (; !listening.isOver(); listening.waitFor(kPatience))
    Console::attached().progress(listening.progress());
  Console::attached().progress(1);
  Listening::Heard all = listening.take();
  if (const auto missed = missedTempoText(all.sound.rhythm.reading, all.sound.wishes))
    Console::attached().note(file + ": " + missed->english());
  const std::optional<FoundTuning>& found = all.sound.otherTuning;
  if (found)
    Console::attached().note(file + ": it was played in " + nameOfTuning(*found) +
                             ", and is heard so");
  return {{file, std::move(all.sound.notes), std::move(all.sound.rhythm)},
          all.grid,
          found ? found->open : thought};
}

/// The formats that were asked for of a single recording, each with its file.
class Outputs {
 public:
  explicit Outputs(const TranscribeOptions& options) : m_options(options) {
    OutputFile::requireDifferent({options.json, options.midi, options.musicxml});
    for (const auto* name : {&options.json, &options.midi, &options.musicxml})
      if (*name) checkFile(**name);
  }

  void write(const HeardFile& heard) const {
    const NotesOfFile& notes = heard.notes;
    const NoteScore score(notes.notes, notes.rhythm.reading, heard.open);
    const std::string json = notesAsJson(notes.notes, notes.rhythm);
    if (m_options.json) fileOf(*m_options.json).write(json);
    if (m_options.midi) fileOf(*m_options.midi).write(midiOf(score, heard.grid));
    if (m_options.musicxml) fileOf(*m_options.musicxml).write(musicXmlOf(scoreOf(score)));
    if (!m_options.json && !m_options.midi && !m_options.musicxml) Console::attached().print(json);
  }

 private:
  Score scoreOf(const NoteScore& notes) const {
    Score score = notes.score(title());
    putBehind(m_options.settings.fingering.capo, score);
    return score;
  }
  std::string midiOf(const NoteScore& score, Grid grid) const {
    return midiFile(grid == Grid::beats ? score.midi(title()) : score.heardMidi(title()));
  }
  const std::string& recording() const { return m_options.files.front(); }
  /// That of the song which an import makes.
  std::string title() const {
    return RecordingTags(recording())
        .title.value_or(std::filesystem::path(recording()).stem().string());
  }
  void checkFile(const std::string& name) const {
    const OutputFile file = fileOf(name);
    file.requireOtherThan(recording());
    file.check();
  }
  OutputFile fileOf(const std::string& name) const { return {name, m_options.force}; }

  const TranscribeOptions& m_options;
};

void transcribeOne(const TranscribeOptions& options) {
  requireSound(options.files.front());
  const Outputs outputs(options);
  const OpenPitches open = openStrings(options);
  const auto listening = ListeningAhead(options.files, open, options.settings).next();
  outputs.write(heardIn(options.files.front(), open, *listening));
}

/// A file that cannot be heard is reported; the others go on. Answers the exit status.
int transcribeAll(const TranscribeOptions& options) {
  const OpenPitches open = openStrings(options);
  ListeningAhead ahead(options.files, open, options.settings);
  std::vector<NotesOfFile> heard;
  for (const std::string& file : options.files) {
    try {
      heard.push_back(heardIn(file, open, *ahead.next()).notes);
    } catch (const std::exception& error) {
      Console::attached().errorOf(file, "", error);
    }
  }
  Console::attached().print(notesAsJson(heard));
  return heard.size() == options.files.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int transcribe(const TranscribeOptions& options) {
  if (options.files.size() > 1) return transcribeAll(options);
  transcribeOne(options);
  return EXIT_SUCCESS;
}

void check(const TranscribeOptions& options) {
  const bool writes = options.json || options.midi || options.musicxml;
  if (writes && options.files.size() > 1)
    throw UsageError("--json, --midi and --musicxml", "go with a single file");
}

}  // namespace

void addTranscribe(Command& tool) {
  Command& command = tool.command(
      "transcribe", "Print the notes of recordings as JSON, or write those of one to files");
  auto& options = command.own<TranscribeOptions>();
  command.option("FILE", options.files, "Sound files").required().shownAs("");
  command.option("--json", options.json, "Notes (default: printed when no file is named)")
      .shownAs("FILE");
  command.option("--midi", options.midi, "Notes as a song has them, for sequencers")
      .shownAs("FILE");
  command.option("--musicxml", options.musicxml, "Notes as a song has them, as a score")
      .shownAs("FILE");
  command.flag("--force", options.force, "Replace files that are there already");
  command.option("--tuning", options.tuning,
                 "Tuning of the guitar, such as \"Drop D\" (default: Standard), or the one that it "
                 "is clearly played in (auto)");
  addDetectionFlags(command, options.settings);
  addConcertPitchFlag(command, options.settings);
  addGridFlag(command, options.settings,
              "What --midi writes: bars (beats, default) or notes at the times they were heard at "
              "(slices)");
  addRhythmFlags(command, options.settings);
  command.checkLast([&] {
    check(options);
    command.uses(isNamedTuning(options.tuning) ? Store::filled : Store::none);
    if (options.tuning != kFoundTuning) return;
    options.settings.takesTuning = true;
    options.settings.tunings = pitchesOfKnownTunings();
  });
  command.does([&options] { return transcribe(options); });
}

}  // namespace korvel::cli
