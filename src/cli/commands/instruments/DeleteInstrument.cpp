// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/DeleteInstrument.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {

void addDeleteInstrument(Command& instruments) {
  Command& command = instruments.command("delete", "Delete an instrument, but not the only one");
  auto& name = command.own<std::string>();
  needInstrument(command, name);
  command.does([&name] { deleteInstrument(chooseInstrument(name)); });
}

}  // namespace korvel::cli
