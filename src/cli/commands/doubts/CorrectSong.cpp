// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/doubts/CorrectSong.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "analysis/HearingSettings.h"
#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/DetectionFlags.h"
#include "cli/support/Unlogged.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/ChordRange.h"
#include "cli/support/choices/SongChoice.h"
#include "cli/support/choices/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "model/instruments/SongTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"
#include "workflow/editing/doubts/DoubtList.h"
#include "workflow/editing/doubts/PartHearing.h"
#include "workflow/editing/doubts/SongCorrections.h"

namespace korvel::cli {
namespace {

struct CorrectOptions {
  std::string song;
  ChordRange range;  ///< None for the whole song.
  std::vector<int> accepted;
  std::vector<int> rejected;
  std::vector<int> confirmed;
  HearingSettings settings = settingsOfFrontEnds();
  std::optional<std::string> tuning;  ///< That of the song when not given.
  bool decidesAnew = false;
  bool hearsAgain = false;
  bool hasCapo = false;  ///< Said; otherwise it is that of the song.

  bool namesNotes() const { return !(accepted.empty() && rejected.empty() && confirmed.empty()); }
};

/// As they are counted in the song's notes.
std::vector<std::size_t> indexes(const std::vector<int>& numbers, const SongNotes& notes) {
  std::vector<std::size_t> found;
  for (const int number : numbers) {
    if (number < 1 || static_cast<std::size_t>(number) > notes.size())
      throw CliError("there is no note " + std::to_string(number) + "; there are 1 to " +
                     std::to_string(notes.size()));
    found.push_back(static_cast<std::size_t>(number) - 1);
  }
  return found;
}

/// FROM without TO is that chord alone.
std::optional<SongCorrections::Part> partOf(QBSong& song, const ChordRange& range) {
  if (range.from == 0) return {};
  const int to = range.to == 0 ? range.from : range.to;
  const auto [first, last] = std::minmax(range.from, to);
  return SongCorrections::Part{chordAt(song, first)->position() - 1,
                               chordAt(song, last)->position() - 1};
}

NoteChanges hearPart(QBSong& song, const std::optional<SongCorrections::Part>& part,
                     const CorrectOptions& options) {
  const int last = static_cast<int>(song.allChords().size()) - 1;
  std::optional<OpenPitches> playedOn;
  if (options.tuning) playedOn = chooseTuning(*options.tuning).openStrings().pitches();
  HearingSettings settings = options.settings;
  if (!options.hasCapo) settings.fingering.capo = capoOf(song);
  PartHearing hearing(song, part.value_or(SongCorrections::Part{0, last}), settings, playedOn);
  while (hearing.step()) Console::attached().progress(hearing.progress());
  Console::attached().progress(1);
  const NoteChanges changes = hearing.finish();
  if (hearing.unreached() > 0)
    Console::attached().note("notes that the song's strings do not have: " +
                             std::to_string(hearing.unreached()));
  return changes;
}

void correct(QBSong& song, const CorrectOptions& options) {
  const Unlogged quiet;
  SongCorrections corrections(song);
  if (options.namesNotes()) {
    const SongNotes notes(song);
    corrections.correct(indexes(options.accepted, notes), indexes(options.rejected, notes),
                        indexes(options.confirmed, notes));
  }
  if (!options.hearsAgain && !options.decidesAnew) return;
  const auto part = partOf(song, options.range);
  const NoteChanges changes = options.hearsAgain
                                  ? hearPart(song, part, options)
                                  : corrections.decideAnew(options.settings.sensitivity, part);
  Console::attached().printLine("notes that come: " + std::to_string(changes.come) +
                                ", that go: " + std::to_string(changes.go));
}

void doCorrect(const CorrectOptions& options) {
  QBSong& song = chooseSong(options.song);
  correct(song, options);
  Console::attached().printLine(std::to_string(DoubtList(song, SongNotes(song)).size()) +
                                " doubtful places are left");
}

/// What is said of one note is one thing.
void requireOneVerdictEach(const CorrectOptions& options) {
  std::set<int> named;
  for (const auto* numbers : {&options.accepted, &options.rejected, &options.confirmed}) {
    for (const int number : *numbers)
      if (named.contains(number))
        throw UsageError("--accept, --reject, --confirm",
                         "two of them name note " + std::to_string(number));
    named.insert(numbers->begin(), numbers->end());
  }
}

void checkCorrect(const Command& command, CorrectOptions& options) {
  options.decidesAnew = command.isGiven("--sensitivity") && !options.hearsAgain;
  if (!options.namesNotes() && !options.decidesAnew && !options.hearsAgain)
    throw UsageError("--accept", "or --reject, --confirm, --sensitivity or --hear-again is needed");
  options.hasCapo = command.isGiven("--capo");
  requireOneVerdictEach(options);
  if (options.range.from != 0 && !options.decidesAnew && !options.hearsAgain)
    throw UsageError("FROM", "goes with --sensitivity or --hear-again");
  for (const char* flag : {"--position", "--frets", "--capo", "--tuning"})
    if (command.isGiven(flag) && !options.hearsAgain)
      throw UsageError(flag, "goes with --hear-again");
}

}  // namespace

void addCorrectSong(Command& tool) {
  Command& command = tool.command("correct", "Correct what was heard wrong in a song");
  auto& options = command.own<CorrectOptions>();
  needStoredSong(command, options.song);
  addRange(command, options.range);
  command.option("--accept", options.accepted, "Take the candidates of these numbers for notes")
      .shownAs("NUMBER...");
  command.option("--reject", options.rejected, "Drop the notes of these numbers")
      .shownAs("NUMBER...");
  command.option("--confirm", options.confirmed, "The notes of these numbers are as they should be")
      .shownAs("NUMBER...");
  command.flag("--hear-again", options.hearsAgain,
               "Hear the recording of these chords again, with the following settings");
  command.option("--tuning", options.tuning,
                 "How the guitar is tuned there, such as \"Drop D\"; the song keeps its tuning");
  addDetectionFlags(command, options.settings);
  command.checkLast([&command, &options] { checkCorrect(command, options); });
  command.does([&options] { doCorrect(options); });
}

}  // namespace korvel::cli
