// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/store/TuningCommands.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/TuningChoice.h"
#include "cli/support/UsageError.h"
#include "model/instruments/QBTuning.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"
#include "music/NoteName.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

struct NewTuning {
  std::string like{};
  std::vector<std::string> notes{};  ///< Such as "D2", the lowest string first; six or none.
  std::optional<std::string> name{};
};

struct Known {
  const char* name;
  KnownTuning tuning;
};

constexpr std::array kKnown{Known{"Standard", KnownTuning::standard},
                            Known{"Drop D", KnownTuning::dropD},
                            Known{"Open G", KnownTuning::openG}};

KnownTuning knownTuning(const std::string& name) {
  for (const Known& each : kKnown)
    if (each.name == name) return each.tuning;
  throw CliError(
      "no tuning begins as \"" + name +
      "\"; there is \"Standard\", \"Drop D\" and \"Open G\", or --strings with six notes");
}

OpenPitches pitchesNamed(const std::vector<std::string>& notes) {
  OpenPitches pitches{};
  for (std::size_t string = 0; string < pitches.size(); ++string) {
    const auto pitch = midiNote(notes.at(string));
    if (!pitch) throw CliError(notes.at(string) + ": is no note; name notes such as E2 or F#3");
    pitches.at(string) = *pitch;
  }
  return pitches;
}

QBTuning* made(const NewTuning& wanted) {
  if (!wanted.notes.empty()) return newTuning(*wanted.name, pitchesNamed(wanted.notes));
  return newTuning(knownTuning(wanted.like), wanted.name);
}

/// The active one is marked with a star.
void listTunings() {
  const QBTuning* active = QBTabMgr::db().selectedTuning();
  for (const auto& tuning : QBTabMgr::db().tunings())
    Console::attached().printLine((tuning == active ? "* " : "  ") + tuning->descr() + " (" +
                                  tuning->toString() + ")");
}

void selectTuningNamed(const std::string& name) { selectTuning(chooseTuning(name)); }

void addTuning(const NewTuning& tuning) { Console::attached().print(made(tuning)->descr() + '\n'); }

void editStrings(const NewTuning& wanted) {
  editTuning(chooseTuning(wanted.like), pitchesNamed(wanted.notes));
}

void addName(Command& command, std::string& name) {
  command.option("TUNING", name, "Its name").required().shownAs("");
}

void addSelect(Command& tunings) {
  Command& command = tunings.command("select", "Select the tuning of new songs");
  auto& name = command.own<std::string>();
  addName(command, name);
  command.does([&name] { selectTuningNamed(name); });
}

void addEdit(Command& tunings) {
  Command& command = tunings.command("edit", "Give a tuning that is not in use other strings");
  auto& tuning = command.own<NewTuning>();
  addName(command, tuning.like);
  command.option("--strings", tuning.notes, "Its notes, such as D2, lowest string first")
      .required()
      .words(kStrings)
      .shownAs("NOTE...");
  command.does([&tuning] { editStrings(tuning); });
}

void addRename(Command& tunings) {
  Command& command = tunings.command("rename", "Rename a tuning");
  auto& tuning = command.own<NewTuning>();
  addName(command, tuning.like);
  command.option("NAME", tuning.name, "Its new name").required().shownAs("");
  command.does([&tuning] { renameTuning(chooseTuning(tuning.like), *tuning.name); });
}

void addDelete(Command& tunings) {
  Command& command = tunings.command("delete", "Delete a tuning that is not in use");
  auto& name = command.own<std::string>();
  addName(command, name);
  command.does([&name] { deleteTuning(chooseTuning(name)); });
}

void addAdd(Command& tunings) {
  Command& command = tunings.command("add", "Add a tuning");
  auto& tuning = command.own<NewTuning>();
  Option like = command.option("TUNING", tuning.like, "\"Standard\", \"Drop D\" or \"Open G\"");
  like.shownAs("");
  const Option name = command.option("--name", tuning.name, "Its name (default: a free one)");
  Option strings =
      command.option("--strings", tuning.notes, "Or its notes, such as D2, lowest string first");
  strings.words(kStrings).shownAs("NOTE...").needs(name).excludes(like);
  command.checkAtOnce([like, strings] {
    if (!like.isGiven() && !strings.isGiven())
      throw UsageError("add", "takes a TUNING, or --strings and --name");
  });
  command.does([&tuning] { addTuning(tuning); });
}

}  // namespace

void addTunings(Command& tool) {
  Command& tunings = tool.command("tunings", "List the tunings, or change them");
  tunings.does(listTunings);
  addSelect(tunings);
  addAdd(tunings);
  addEdit(tunings);
  addRename(tunings);
  addDelete(tunings);
}

}  // namespace korvel::cli
