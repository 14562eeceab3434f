// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/rhythm/ChordsOfFile.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "analysis/beats/ChordChart.h"
#include "analysis/beats/HeardSound.h"
#include "analysis/beats/SpanNames.h"
#include "analysis/chords/Listening.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/PaperFlags.h"
#include "cli/support/RhythmFlags.h"
#include "cli/support/choices/TuningChoice.h"
#include "export/ChordsJson.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "tab/chordpro/ChordProText.h"
#include "tab/page/PageOfReading.h"
#include "tab/page/SongPage.h"
#include "workflow/editing/rhythm/RhythmWords.h"
#include "workflow/hearing/ListeningAhead.h"
#include "workflow/hearing/RecordingTags.h"
#include "workflow/hearing/SoundCheck.h"

namespace korvel::cli {
namespace {

/// Short enough to show how far it is.
constexpr std::chrono::milliseconds kPatienceOfChords{20};

struct ChordsOptions {
  std::string file;
  std::optional<std::string> tuning;  ///< Of the store; standard tuning when not given.
  HearingSettings settings = settingsOfFrontEnds();
  bool json = false;
  bool chordPro = false;
  PaperFlags paper;
  bool force = false;
};

OpenPitches stringsOf(const ChordsOptions& options) {
  return options.tuning ? chooseTuning(*options.tuning).openStrings().pitches() : kStandardPitches;
}

HeardSound heardIn(const ChordsOptions& options) {
  const OpenPitches open = stringsOf(options);
  const auto listening = ListeningAhead({options.file}, open, options.settings).next();
  for (; !listening->isOver(); listening->waitFor(kPatienceOfChords))
    Console::attached().progress(listening->progress());
  Console::attached().progress(1);
  return listening->take().sound;
}

VoiceOfRecording shownVoice(const HeardVoice& heard) {
  VoiceOfRecording shown{std::string(nameOf(heard.voice)), heard.isClear, {}};
  for (const fingering::Note& note : heard.notes)
    shown.notes.push_back(
        {note.onset, note.end, note.pitch - heard.raised, static_cast<double>(note.probability)});
  return shown;
}

std::string json(const HeardSound& heard) {
  const rhythm::Reading& reading = heard.rhythm.reading;
  std::vector<ChordOfRecording> chords;
  for (std::size_t i = 0; i < reading.chords.size(); ++i) {
    const rhythm::ChordSpan& span = reading.chords[i];
    chords.push_back({reading.secondsOf(span.from), reading.secondsOf(span.to), labelOf(span),
                      span.probability, nameOf(span, reading.key)});
  }
  std::vector<VoiceOfRecording> voices;
  for (const HeardVoice& voice : heard.voices) voices.push_back(shownVoice(voice));
  return chordsAsJson(heard.rhythm, chords, heard.isBand, voices);
}

/// Named after its tags, or its file.
SongPage pageIn(const std::string& file, const HeardSound& heard, const OpenPitches& open) {
  PageSource source = pageSourceOf(heard.rhythm.reading);
  const RecordingTags tags(file);
  source.title = tags.title.value_or(std::filesystem::path(file).stem().string());
  source.artist = tags.artist.value_or("");
  source.capo = heard.capo;
  source.open = open;
  return pageOf(source);
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
  const HeardSound heard = heardIn(options);
  const std::string chart = chordChart(heard.rhythm.reading);
  if (chart.empty()) throw CliError(options.file + ": no chords were heard in it");
  const SongPage page = pageIn(options.file, heard, stringsOf(options));
  if (options.paper.areGiven())
    for (const auto& [file, content] : drawnFiles(options.paper, printedPage(page), options.force))
      file.write(content);
  Console& console = Console::attached();
  if (options.json) return console.print(json(heard));
  if (options.chordPro)
    console.print(chordProOf(page));
  else if (!options.paper.areGiven())
    console.print(chart);
  tellDoubts(heard.rhythm);
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
  options.settings.players = Players::automatic;
  addPlayersFlag(command, options.settings);
  Option json = command.flag("--json", options.json,
                             "Print beats, key and chords, each with its probability");
  addVoicesFlag(command, options.settings).needs(json);
  command.flag("--chordpro", options.chordPro, "Print a ChordPro file, with grips").excludes(json);
  addPaperFlags(command, options.paper, "Their page, with grips,");
  command.flag("--force", options.force, "Replace files that are there already");
  command.checkLast([&] { command.uses(options.tuning ? Store::filled : Store::none); });
  command.does([&options] { printChords(options); });
}

}  // namespace korvel::cli
