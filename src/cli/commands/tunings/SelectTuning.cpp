// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/SelectTuning.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/TuningChoice.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {

void addSelectTuning(Command& tunings) {
  Command& command = tunings.command("select", "Select the tuning of new songs");
  auto& name = command.own<std::string>();
  needTuning(command, name);
  command.does([&name] { selectTuning(tuningToPlayIn(name)); });
}

}  // namespace korvel::cli
