// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/DeleteTuning.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/TuningChoice.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {

void addDeleteTuning(Command& tunings) {
  Command& command = tunings.command("delete", "Delete a tuning that is not in use");
  auto& name = command.own<std::string>();
  needTuning(command, name);
  command.does([&name] { deleteTuning(chooseTuning(name)); });
}

}  // namespace korvel::cli
