// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/tunings/RenameTuning.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/TuningChoice.h"
#include "workflow/library/TuningEdits.h"

namespace korvel::cli {
namespace {

struct RenamedTuning {
  std::string name;
  std::string newName;
};

}  // namespace

void addRenameTuning(Command& tunings) {
  Command& command = tunings.command("rename", "Rename a tuning");
  auto& options = command.own<RenamedTuning>();
  needTuning(command, options.name);
  command.option("NAME", options.newName, "Its new name").required().shownAs("");
  command.does([&options] { renameTuning(chooseTuning(options.name), options.newName); });
}

}  // namespace korvel::cli
