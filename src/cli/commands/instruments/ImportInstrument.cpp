// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands/instruments/ImportInstrument.h"

#include <string>

#include "cli/support/CliError.h"
#include "cli/support/Command.h"
#include "cli/support/Console.h"
#include "cli/support/choices/InstrumentChoice.h"
#include "platform/files/Files.h"
#include "workflow/library/LibraryEdits.h"

namespace korvel::cli {
namespace {

void importDefinition(const std::string& file) {
  if (!platform::isThere(file)) throw CliError(file + ": there is no such file");
  Console::attached().print(choiceOf(*importInstrument(file)) + '\n');
}

}  // namespace

void addImportInstrument(Command& instruments) {
  Command& command = instruments.command("import", "Add an instrument from its definition file");
  auto& file = command.own<std::string>();
  command.option("FILE", file, "Definition file").required().shownAs("");
  command.does([&file] { importDefinition(file); });
}

}  // namespace korvel::cli
