// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/EditTuning.h"

#include <string>
#include <vector>

#include "cli/support/Command.h"
#include "cli/support/choices/TuningChoice.h"
#include "music/Neck.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

struct EditedTuning {
  std::string name;
  std::vector<std::string> notes;
};

}  // namespace

void addEditTuning(Command& tunings) {
  Command& command = tunings.command("edit", "Give a tuning that is not in use other strings");
  auto& options = command.own<EditedTuning>();
  needTuning(command, options.name);
  command.option("--strings", options.notes, "Its notes, such as D2, lowest string first")
      .required()
      .words(kStrings)
      .shownAs("NOTE...");
  command.does([&options] { editTuning(chooseTuning(options.name), pitchesNamed(options.notes)); });
}

}  // namespace korvel::cli
