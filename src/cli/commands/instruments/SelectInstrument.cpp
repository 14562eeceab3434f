// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/SelectInstrument.h"

#include <string>

#include "cli/support/Command.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {

void addSelectInstrument(Command& instruments) {
  Command& command = instruments.command("select", "Select the instrument that confirms tones");
  auto& name = command.own<std::string>();
  needInstrument(command, name);
  command.does([&name] { selectInstrument(chooseInstrument(name)); });
}

}  // namespace korvel::cli
