// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/RenameInstrument.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

struct RenamedInstrument {
  std::string name;
  std::string newName;
};

}  // namespace

void addRenameInstrument(Command& instruments) {
  Command& command = instruments.command("rename", "Rename an instrument");
  auto& options = command.own<RenamedInstrument>();
  needInstrument(command, options.name);
  command.option("NAME", options.newName, "Its new name").required().shownAs("");
  command.does([&options] { renameInstrument(chooseInstrument(options.name), options.newName); });
}

}  // namespace korvel::cli
