// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/doubts/CorrectSong.h"

#include <optional>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/Unlogged.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/SongChoice.h"
#include "model/songs/QBSong.h"
#include "workflow/editing/doubts/DoubtList.h"
#include "workflow/editing/doubts/SongCorrections.h"

namespace korvel::cli {
namespace {

struct CorrectOptions {
  std::string song;
  std::vector<int> accepted;
  std::vector<int> rejected;
  std::vector<int> confirmed;
  std::optional<double> sensitivity;

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

void correct(QBSong& song, const CorrectOptions& options) {
  const Unlogged quiet;
  SongCorrections corrections(song);
  if (options.namesNotes()) {
    const SongNotes notes(song);
    corrections.correct(indexes(options.accepted, notes), indexes(options.rejected, notes),
                        indexes(options.confirmed, notes));
  }
  if (!options.sensitivity) return;
  const NoteChanges changes = corrections.decideAnew(*options.sensitivity);
  Console::attached().printLine(std::to_string(changes.come) + " notes come, " +
                                std::to_string(changes.go) + " go");
}

void doCorrect(const CorrectOptions& options) {
  QBSong& song = chooseSong(options.song);
  correct(song, options);
  Console::attached().printLine(std::to_string(DoubtList(song, SongNotes(song)).size()) +
                                " doubtful places are left");
}

}  // namespace

void addCorrectSong(Command& tool) {
  Command& command = tool.command("correct", "Correct what was heard wrong in a song");
  auto& options = command.own<CorrectOptions>();
  needStoredSong(command, options.song);
  command.option("--accept", options.accepted, "Take the candidates of these numbers for notes")
      .shownAs("NUMBER...");
  command.option("--reject", options.rejected, "Drop the notes of these numbers")
      .shownAs("NUMBER...");
  command.option("--confirm", options.confirmed, "The notes of these numbers are as they should be")
      .shownAs("NUMBER...");
  command
      .option("--sensitivity", options.sensitivity,
              "Decide anew what is a note: more notes with a higher number; what was corrected "
              "stays")
      .within(0, 1);
  command.checkLast([&options] {
    if (!options.namesNotes() && !options.sensitivity)
      throw UsageError("--accept", "or --reject, --confirm or --sensitivity is needed");
  });
  command.does([&options] { doCorrect(options); });
}

}  // namespace korvel::cli
