// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/AddTuning.h"

#include <optional>
#include <string>
#include <vector>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/UsageError.h"
#include "cli/support/choices/TuningChoice.h"
#include "model/instruments/QBTuning.h"
#include "music/Neck.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

struct NewTuning {
  std::string like{};
  std::vector<std::string> notes{};  ///< Such as "D2", the lowest string first; six or none.
  std::optional<std::string> name{};
};

/// Those that are known, as words for users.
std::string knownNames() {
  std::string names;
  for (const KnownTuning each : knownTunings()) {
    if (!names.empty()) names += each == knownTunings().back() ? " and " : ", ";
    names += '"' + std::string(nameOf(each)) + '"';
  }
  return names;
}

KnownTuning knownTuning(const std::string& name) {
  for (const KnownTuning each : knownTunings())
    if (nameOf(each) == name) return each;
  throw CliError("no tuning begins as \"" + name + "\"; there is " + knownNames() +
                 ", or --strings with six notes");
}

QBTuning* made(const NewTuning& wanted) {
  if (!wanted.notes.empty()) return newTuning(*wanted.name, pitchesNamed(wanted.notes));
  return newTuning(knownTuning(wanted.like), wanted.name);
}

void addTuning(const NewTuning& tuning) { Console::attached().print(made(tuning)->descr() + '\n'); }

}  // namespace

void addAddTuning(Command& tunings) {
  Command& command = tunings.command("add", "Add a tuning");
  auto& tuning = command.own<NewTuning>();
  Option like = command.option("TUNING", tuning.like, "A known one, such as \"Drop D\"");
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

}  // namespace korvel::cli
